// SPDX-License-Identifier: Apache-2.0
#include "tests/support/EventRecorder.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QShortcut>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

namespace velmora::test {

/// Ads are ready, and the user is busy in the window. Keys and buttons come as from the window
/// system.
class SoftShowTest : public RegisteredHost {
protected:
    SoftShowTest() { time.advance(30); }

    QWindow *handle() const { return window->windowHandle(); }
    void pressMouse() { QTest::mousePress(handle(), Qt::LeftButton, {}, {20, 20}); }
    void releaseMouse() { QTest::mouseRelease(handle(), Qt::LeftButton, {}, {20, 20}); }
    void pressKey() { QTest::keyPress(handle(), Qt::Key_A); }
    void releaseKey() { QTest::keyRelease(handle(), Qt::Key_A); }

    void showWhileBusy() {
        events.refusals();
        Velmora::show();
        EXPECT_FALSE(Velmora::isShowSplashScreen());
        EXPECT_EQ(refusal(), QStringLiteral("ShowSplashScreen UserIsBusy"));
        Velmora::show();
        EXPECT_EQ(refusal(), QString()) << "told once";
        EXPECT_TRUE(presenter().isWaitingForUser());
        EXPECT_TRUE(Velmora::isADSReady());
    }
    // The splash screen appears now, once.
    void expectShown() {
        handleEvents();
        EXPECT_TRUE(Velmora::isShowSplashScreen());
        EXPECT_EQ(heard().count(WillShow), 1);
        time.advance(10);
        presenter().didClickClose();
        time.advance(120);
        EXPECT_FALSE(Velmora::isShowSplashScreen());
        EXPECT_EQ(time.timerCount(), 0u);
    }
    QString refusal() { return events.refusals().join(QStringLiteral(", ")); }

    EventRecorder events;
};

TEST_F(SoftShowTest, WaitsForMouseButtonPopupDragAndModalDialog) {
    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    QWidget dialog;
    dialog.setWindowModality(Qt::ApplicationModal);
    QMimeData dragged;
    const struct {
        std::function<void()> begin;
        std::function<void()> end;
    } activities[] = {
        {[&] { pressMouse(); }, [&] { releaseMouse(); }},
        {[&] { menu.popup({}); }, [&] { menu.close(); }},
        {[&] {
             QDragEnterEvent enter({20, 20}, Qt::CopyAction, &dragged, Qt::NoButton, {});
             QCoreApplication::sendEvent(handle(), &enter);
         },
         [&] {
             QDragLeaveEvent leave;
             QCoreApplication::sendEvent(handle(), &leave);
         }},
        {[&] {
             dialog.show();
             activate(window);
         },
         [&] { dialog.close(); }},
    };
    for (const auto &activity : activities) {
        SCOPED_TRACE(&activity - activities);
        activity.begin();
        handleEvents();
        ASSERT_TRUE(presenter().isFocus());
        showWhileBusy();
        time.advance(60);
        EXPECT_FALSE(Velmora::isShowSplashScreen());
        EXPECT_EQ(time.timerCount(), 0u) << "nothing is polled";
        activity.end();
        activate(window);
        expectShown();
    }
}

TEST_F(SoftShowTest, WaitsForASecondAfterTheLastKeystroke) {
    for (const bool usesInputMethod : {false, true}) {
        for (int stroke = 0; stroke < 3; ++stroke) {
            if (usesInputMethod) {
                QInputMethodEvent text;
                text.setCommitString(QStringLiteral("x"));
                QCoreApplication::sendEvent(window, &text);
            } else {
                pressKey();
                releaseKey();
            }
            if (stroke == 0)
                showWhileBusy();
            time.advance(0.9);
            EXPECT_FALSE(Velmora::isShowSplashScreen()) << usesInputMethod;
        }
        time.advance(0.2);
        expectShown();
    }
    // A key press that triggers a shortcut comes to no widget.
    const QShortcut refresh(Qt::Key_F5, window);
    QTest::keyPress(handle(), Qt::Key_F5);
    showWhileBusy();
    QTest::keyRelease(handle(), Qt::Key_F5);
    time.advance(1);
    expectShown();
    // What the host sends itself is no typing.
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, {});
    QCoreApplication::sendEvent(window, &key);
    Velmora::show();
    expectShown();
}

TEST_F(SoftShowTest, AHeldKeyCountsUntilItsReleaseButNotForEver) {
    pressKey();
    showWhileBusy();
    for (int second = 0; second < 30; ++second) { // repeats
        QTest::simulateEvent(handle(), true, Qt::Key_A, {}, QStringLiteral("a"), true);
        time.advance(1);
    }
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    releaseKey();
    time.advance(1);
    expectShown();

    pressKey(); // and never released
    showWhileBusy();
    time.advance(9);
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    time.advance(2);
    expectShown();

    pressKey(); // released in another application
    showWhileBusy();
    QApplicationStateChangeEvent inactive(Qt::ApplicationInactive);
    QCoreApplication::sendEvent(qApp, &inactive);
    time.advance(1.1);
    expectShown();
}

TEST_F(SoftShowTest, AllConditionsAreCheckedAgainWhenTheUserHasFinished) {
    const auto waitWithButton = [this] {
        pressMouse();
        showWhileBusy();
    };
    waitWithButton();
    Velmora::refreshWaitAgain();
    releaseMouse();
    handleEvents();
    EXPECT_EQ(refusal(), QStringLiteral("ShowSplashScreen NotReady"));
    time.advance(120);
    EXPECT_FALSE(Velmora::isShowSplashScreen());

    waitWithButton();
    QWidget *other = openWindow("other");
    releaseMouse();
    handleEvents();
    EXPECT_EQ(refusal(), QStringLiteral("ShowSplashScreen NoKeyWindow"));
    EXPECT_FALSE(presenter().isWaitingForUser());
    closeWindow(other);
    activate(window);
    expectShown();
}

TEST_F(SoftShowTest, WaitingEndsWithAForcedShowTheLastWindowAndTheRemovalOfAds) {
    pressMouse();
    showWhileBusy();
    Velmora::forceShow();
    EXPECT_FALSE(presenter().isWaitingForUser());
    releaseMouse();
    expectShown();

    pressMouse();
    showWhileBusy();
    Velmora::removeSplashScreenFromWindow(window);
    EXPECT_FALSE(presenter().isWaitingForUser());
    Velmora::addSplashScreenToWindow(window);
    releaseMouse();
    time.advance(60);
    EXPECT_EQ(heard().count(WillShow), 0);

    pressMouse();
    showWhileBusy();
    Velmora::removeAdsNow();
    releaseMouse();
    time.advance(60);
    EXPECT_EQ(heard().count(WillShow), 0);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(SoftShowTest, IsSkippedWithoutAVideoIfTheHostWantsThat) {
    Velmora::setSplashScreenSkippedWhenEmpty(true);
    Velmora::show();
    EXPECT_EQ(refusal(), QStringLiteral("ShowSplashScreen NoVideo"));
    EXPECT_EQ(heard(), QStringList());
    EXPECT_TRUE(Velmora::isADSReady());
    EXPECT_EQ(Velmora::splashScreenStartCount(), 0);

    // The video that was there when the host asked is gone when its window becomes key.
    useUnplayableVideo();
    openWindow("other");
    Velmora::show();
    EXPECT_TRUE(presenter().isNeedShow());
    QFile::remove(presenter().defaultVideoUrl().toLocalFile());
    events.refusals();
    activate(window);
    EXPECT_EQ(refusal(), QStringLiteral("ShowSplashScreen NoVideo"));
    EXPECT_TRUE(Velmora::isADSReady());

    useUnplayableVideo();
    Velmora::show();
    expectShown();
    Velmora::setDefaultVideoWithURL({}, {});
    Velmora::forceShow();
    expectShown();
    Velmora::setSplashScreenSkippedWhenEmpty(false);
    Velmora::show();
    expectShown();
}

TEST_F(SoftShowTest, TheUsersChoiceOfSoundOverridesTheHostsAlsoInLaterRuns) {
    const auto showVideo = [this] {
        useUnplayableVideo();
        Velmora::forceShow();
        time.advance(5);
    };
    const auto soundButton = [this] { return controller(window).outlets().soundButton; };
    Velmora::setSplashScreenMuted(true);
    showVideo();
    EXPECT_TRUE(controller(window).playerlayer()->isMuted());
    EXPECT_EQ(soundButton()->state(), 1);
    Velmora::setSplashScreenMuted(false);
    EXPECT_FALSE(controller(window).playerlayer()->isMuted());
    EXPECT_EQ(soundButton()->state(), 0);
    soundButton()->click();
    EXPECT_TRUE(presenter().isMuted());
    Velmora::setSplashScreenMuted(false);
    EXPECT_TRUE(presenter().isMuted());
    presenter().didClickClose();

    restartProcess();
    window = openRegistered("next run");
    Velmora::setSplashScreenMuted(false);
    showVideo();
    EXPECT_TRUE(controller(window).playerlayer()->isMuted());
    EXPECT_EQ(soundButton()->state(), 1);
    soundButton()->click();
    Velmora::setSplashScreenMuted(true);
    EXPECT_FALSE(presenter().isMuted());
}

} // namespace velmora::test
