// SPDX-License-Identifier: Apache-2.0
#include "Window.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

namespace velmora::test {

class SplashScreenWindowsTest : public SplashHost {
protected:
    QWidget *window = openRegistered(QStringLiteral("main"));
};

TEST_F(SplashScreenWindowsTest, AnyWidgetOfAWindowNamesThatWindow) {
    auto *inner = new QWidget(new QWidget(window));
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(inner)) << "its window is registered";
    Velmora::setSplashScreenTopInset(30, inner);
    EXPECT_EQ(controller(window).topInset(), 30);
    Velmora::removeSplashScreenFromWindow(inner);
    EXPECT_TRUE(presenter().SSControllers().empty());
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(inner));
    EXPECT_EQ(presenter().splashScreenControllerWithWindow(inner)->window(), window);
    EXPECT_TRUE(presenter().isFocus());
}

TEST_F(SplashScreenWindowsTest, TheDelayBeforeTheFirstSequenceRunsAgainOnceNoWindowIsRegistered) {
    time.advance(20);
    openRegistered(QStringLiteral("second"));
    time.advance(10);
    EXPECT_TRUE(Velmora::isADSReady());
    Velmora::forceShow();
    presenter().removeAllSplashScreens();
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_TRUE(presenter().SSControllers().empty());
    EXPECT_FALSE(Velmora::isADSReady());
    QWidget *third = openRegistered(QStringLiteral("third"));
    time.advance(30);
    EXPECT_TRUE(Velmora::isADSReady());
    // A window that is registered again is observed once.
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(window));
    activate(third);
    activate(window);
    EXPECT_EQ(presenter().activeSplashScreenController()->window(), window);
}

TEST_F(SplashScreenWindowsTest, TheWindowWithTheVideoMayBeRemoved) {
    QWidget *second = openRegistered(QStringLiteral("second"));
    useUnplayableVideo();
    Velmora::forceShow();
    time.advance(6);
    EXPECT_NE(controller(second).playerlayer(), nullptr);
    Velmora::removeSplashScreenFromWindow(second);
    EXPECT_FALSE(presenter().splashScreenControllerWithVideo());
    EXPECT_EQ(presenter().splashScreenControllerWithWindow(second), nullptr);
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    time.advance(4);
    EXPECT_TRUE(isShown(controller(window).outlets().closeButton));
}

TEST_F(SplashScreenWindowsTest, AClosedWindowIsRemovedOnlyWithAutoRemovalOn) {
    QWidget *second = openRegistered(QStringLiteral("second"));
    second->close();
    handleEvents();
    EXPECT_NE(presenter().splashScreenControllerWithWindow(second), nullptr);
    second->show();
    activate(second);
    Velmora::setARCToWindows(true);
    second->close();
    EXPECT_NE(presenter().splashScreenControllerWithWindow(second), nullptr) << "a turn later";
    handleEvents();
    EXPECT_EQ(presenter().splashScreenControllerWithWindow(second), nullptr);
}

TEST_F(SplashScreenWindowsTest, TheHostMayDestroyAWindowAtAnyMoment) {
    useUnplayableVideo();
    // In every phase the window with the video is destroyed; at the end, the only window.
    for (const double moment : {0.5, 5.5, 10.5, 20.0}) {
        QWidget *playing = openRegistered(QStringLiteral("playing"));
        activate(playing);
        Velmora::forceShow();
        ASSERT_TRUE(Velmora::isShowSplashScreen()) << moment;
        time.advance(moment);
        closeWindow(playing);
        EXPECT_EQ(presenter().SSControllers().size(), 1u) << moment;
        EXPECT_FALSE(presenter().isFocus());
        handleEvents();
        EXPECT_TRUE(presenter().needsResumeSplashScreen());
        activate(window);
        time.advance(15);
        EXPECT_TRUE(isShown(controller(window).outlets().closeButton)) << moment;
        controller(window).outlets().closeButton->click();
    }
    Velmora::forceShow();
    time.advance(6);
    closeWindow(window);
    time.advance(60);
    EXPECT_TRUE(presenter().SSControllers().empty());
}

TEST_F(SplashScreenWindowsTest, AWindowWithNewContentKeepsItsSplashScreen) {
    auto *main = new QMainWindow;
    main->setCentralWidget(new QWidget);
    QWidget *second = openWindow(QStringLiteral("second"));
    auto *old = new QWidget(second);
    old->resize(second->size());
    old->show();
    auto content = std::make_unique<ViewController>(old);
    content->setContentOf(second);
    main->show();
    activate(main);
    Velmora::addSplashScreenToWindow(second);
    Velmora::addSplashScreenToWindow(main);
    useUnplayableVideo();
    const auto covers = [](QWidget *covered) {
        const Overlay *overlay = controller(covered).overlay();
        const QWidget *view = controller(covered).viewIfLoaded();
        const QWidget *hit = covered->childAt(covered->rect().center());
        return !overlay->isHidden() && view && view->isVisible() && hit &&
               (hit == view || view->isAncestorOf(hit));
    };
    Velmora::forceShow();
    for (const double moment : {1.0, 5.0, 6.0}) {
        time.advance(moment);
        auto *next = new QLabel(QStringLiteral("new content"));
        main->setCentralWidget(next);
        next->setFocus();
        delete old;
        old = new QWidget(second);
        old->resize(second->size());
        old->show();
        content = std::make_unique<ViewController>(old);
        content->setContentOf(second);
        handleEvents();
        EXPECT_TRUE(covers(main)) << moment;
        EXPECT_TRUE(covers(second)) << moment;
        EXPECT_EQ(controller(second).overlay()->superview(), old);
        main->takeCentralWidget()->deleteLater();
        handleEvents();
        EXPECT_TRUE(covers(main)) << moment;
    }
    EXPECT_NE(controller(main).playerlayer(), nullptr) << "the video plays on";
    controller(second).outlets().closeButton->click();
    time.advance(1);
    EXPECT_FALSE(controller(main).view()->isVisible());
    // When the host has destroyed the view itself, the window can be registered again.
    delete controller(second).view();
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(second));
    EXPECT_EQ(presenter().SSControllers().size(), 3u);
    delete main;
}

} // namespace velmora::test
