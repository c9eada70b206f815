// SPDX-License-Identifier: Apache-2.0
#include "AdKeys.h"
#include "AdsDownloader.h"
#include "FacadeState.h"
#include "Window.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtCore/QJsonArray>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

#include <thread>

namespace velmora::test {

using Presenter = SplashScreenPresenter;

namespace {

const QString WillShow = QStringLiteral("splashcreenwillshow");
const QString DidShow = QStringLiteral("splashcreendidshow");
const QString MoreOne = QStringLiteral("splashcreensecondstart");
const QString VideoStart = QStringLiteral("videostart");
const QString VideoStop = QStringLiteral("videostop");
const QString DidClose = QStringLiteral("splashscreendidclose");

} // namespace

class SplashScreenPresenterTest : public SplashHost {
protected:
    QWidget *window = openRegistered(QStringLiteral("main"));
};

TEST_F(SplashScreenPresenterTest, ASequenceRunsThroughItsPhases) {
    SplashScreenController &splash = controller(window);
    Velmora::forceShow();
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow}));
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    EXPECT_EQ(countdown(window), QStringLiteral("10"));
    time.advance(3);
    EXPECT_EQ(countdown(window), QStringLiteral("7"));
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateStart);

    // No video: the start screen stays, its ring goes on.
    time.advance(2);
    EXPECT_EQ(heard(), (QStringList{VideoStart}));
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateVideo);
    EXPECT_TRUE(isShown(splash.outlets().lablesView));
    EXPECT_EQ(splash.playerlayer(), nullptr);
    time.advance(4.999);
    EXPECT_FALSE(isShown(splash.outlets().closeButton));
    time.advance(0.001);
    EXPECT_TRUE(isShown(splash.outlets().closeButton));
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateVideoCloseButton);
    time.advance(7);
    EXPECT_EQ(countdown(window), QStringLiteral("0"));
    EXPECT_EQ(videoCountdown(window), QStringLiteral("0"));

    splash.outlets().closeButton->click();
    EXPECT_EQ(heard(), (QStringList{DidClose}));
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateClosed);
    time.advance(1);
    EXPECT_EQ(time.timerCount(), 1u) << "only the waiting period's timer";

    Velmora::forceShow();
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow, MoreOne}));
    EXPECT_EQ(Velmora::splashScreenStartCount(), 2);
}

TEST_F(SplashScreenPresenterTest, ASoftRequestWaitsForTheDelayAndForTheWaitingPeriod) {
    Velmora::show();
    time.advance(29.9);
    EXPECT_FALSE(Velmora::isADSReady());
    Velmora::show();
    EXPECT_FALSE(presenter().isNeedShow());
    EXPECT_EQ(heard(), QStringList());
    time.advance(0.1);
    EXPECT_TRUE(Velmora::isADSReady());
    Velmora::show();
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow}));
    EXPECT_FALSE(Velmora::isADSReady());

    time.advance(10);
    presenter().didClickClose();
    time.advance(119);
    EXPECT_FALSE(Velmora::isADSReady());
    Velmora::refreshWaitAgain();
    time.advance(119);
    EXPECT_FALSE(Velmora::isADSReady());
    time.advance(1);
    EXPECT_TRUE(Velmora::isADSReady());
}

TEST_F(SplashScreenPresenterTest, ASoftRequestWithoutFocusIsRememberedAForcedOneIsNot) {
    time.advance(30);
    QWidget *other = openWindow(QStringLiteral("other"));
    Velmora::forceShow();
    EXPECT_FALSE(presenter().isNeedShow());
    activate(window);
    EXPECT_EQ(heard(), QStringList());

    // The key status left while nothing was shown: the active window is known, and not key.
    activate(other);
    EXPECT_TRUE(presenter().activeSplashScreenController());
    Velmora::show();
    EXPECT_TRUE(presenter().isNeedShow());
    EXPECT_EQ(heard(), QStringList());
    activate(window);
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow}));
    EXPECT_FALSE(presenter().isNeedShow());
}

TEST_F(SplashScreenPresenterTest, AForcedRequestCancelsTheWaitBeforeItLooksAnyFurther) {
    openWindow(QStringLiteral("other"));
    Velmora::forceShow();
    EXPECT_EQ(heard(), QStringList());
    time.advance(1000);
    EXPECT_FALSE(Velmora::isADSReady()) << "nothing is left that would open the gate";
    Velmora::refreshWaitAgain();
    time.advance(120);
    EXPECT_TRUE(Velmora::isADSReady());
}

TEST_F(SplashScreenPresenterTest, RequestsThatFailAGuardChangeNothing) {
    Velmora::forceShow();
    heard();
    Velmora::forceShow();
    Velmora::showWithouSplash();
    EXPECT_EQ(heard(), QStringList());
    EXPECT_EQ(Velmora::splashScreenStartCount(), 1);

    presenter().didClickClose();
    heard();
    Velmora::removeSplashScreenFromWindow(window);
    Velmora::forceShow();
    EXPECT_EQ(heard(), QStringList());
    EXPECT_EQ(Velmora::splashScreenStartCount(), 1);
}

TEST_F(SplashScreenPresenterTest, WithoutTheStartScreenTheVideoComesAtOnce) {
    useUnplayableVideo();
    Velmora::showWithouSplash();
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow}));
    time.advance(0);
    EXPECT_EQ(heard(), (QStringList{VideoStart}));
    const SplashScreenOutlets &outlets = controller(window).outlets();
    EXPECT_TRUE(isShown(outlets.splashScreenPlayerView));
    EXPECT_TRUE(isShown(outlets.soundButton));
    EXPECT_EQ(videoCountdown(window), QStringLiteral("5"));
    time.advance(5);
    EXPECT_EQ(videoCountdown(window), QStringLiteral("0"));
    // The video never ends, so only its ring gives way to the close button.
    EXPECT_TRUE(isShown(outlets.closeButton));
    EXPECT_FALSE(isShown(outlets.videoProgressView));
    EXPECT_TRUE(isShown(outlets.splashScreenPlayerView));
    outlets.closeButton->click();
    EXPECT_FALSE(presenter().withoutSplash());
}

TEST_F(SplashScreenPresenterTest, AVideoThatEndsEarlyLeavesTheEndScreenToTheTimer) {
    useUnplayableVideo();
    Velmora::forceShow();
    time.advance(8);
    heard();
    controller(window).didVideoEnded();
    EXPECT_EQ(heard(), (QStringList{VideoStop}));
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateEnd);
    EXPECT_FALSE(isShown(controller(window).outlets().closeButton));
    time.advance(2);
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateVideoCloseButton);
    EXPECT_TRUE(isShown(controller(window).outlets().closeButton));
    EXPECT_TRUE(isShown(controller(window).outlets().removeAdsButton));

    controller(window).didVideoEnded();
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateEnd);
    presenter().didClickClose();
    heard();
    controller(window).didVideoEnded();
    EXPECT_EQ(heard(), QStringList()) << "nothing is shown any more";
}

TEST_F(SplashScreenPresenterTest, APauseKeepsTheFractionOfTheSecond) {
    QWidget *other = openWindow(QStringLiteral("other"));
    activate(window);
    Velmora::forceShow();
    time.advance(2.4);
    activate(other);
    EXPECT_TRUE(presenter().needsResumeSplashScreen());
    EXPECT_DOUBLE_EQ(presenter().timeDuration(), 2.4);
    time.advance(100);
    EXPECT_EQ(countdown(window), QStringLiteral("8"));
    heard();
    activate(window);
    time.advance(0.599);
    EXPECT_EQ(countdown(window), QStringLiteral("8"));
    time.advance(0.001);
    EXPECT_EQ(countdown(window), QStringLiteral("7"));
    time.advance(1.999);
    EXPECT_EQ(heard(), QStringList());
    time.advance(0.001);
    EXPECT_EQ(heard(), (QStringList{VideoStart}));

    // In the video phase, and twice in a row.
    time.advance(1.5);
    activate(other);
    time.advance(50);
    activate(window);
    time.advance(1.2);
    activate(other);
    EXPECT_NEAR(presenter().timeDuration(), 7.7, 1e-9);
    activate(window);
    time.advance(2.299);
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateVideo);
    time.advance(0.001);
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateVideoCloseButton);

    // From now on clock and tick stay as they are.
    const QString left = countdown(window);
    activate(other);
    activate(window);
    time.advance(5);
    EXPECT_EQ(countdown(window), left);
    EXPECT_FALSE(presenter().tickTimer());
}

TEST_F(SplashScreenPresenterTest, AVideoThatEndedBeforeAPauseStillGetsItsCloseButton) {
    useUnplayableVideo();
    QWidget *other = openWindow(QStringLiteral("other"));
    activate(window);
    Velmora::forceShow();
    time.advance(7);
    controller(window).didVideoEnded();
    activate(other);
    time.advance(60);
    EXPECT_FALSE(isShown(controller(window).outlets().closeButton));
    activate(window);
    time.advance(3);
    EXPECT_TRUE(isShown(controller(window).outlets().closeButton));
}

TEST_F(SplashScreenPresenterTest, TheKeyStatusMayMoveBetweenRegisteredWindows) {
    QWidget *second = openRegistered(QStringLiteral("second"));
    EXPECT_EQ(presenter().activeSplashScreenController()->window(), second);
    Velmora::forceShow();
    EXPECT_EQ(presenter().splashScreenControllerWithVideo()->window(), second);
    activate(window);
    EXPECT_FALSE(presenter().needsResumeSplashScreen());
    EXPECT_TRUE(presenter().tickTimer()->isValid());
    EXPECT_EQ(presenter().splashScreenControllerWithVideo()->window(), second);
    time.advance(5);
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateVideo);
}

TEST_F(SplashScreenPresenterTest, AResumeAfterAdsWereRemovedDoesNothing) {
    QWidget *other = openWindow(QStringLiteral("other"));
    activate(window);
    Velmora::forceShow();
    activate(other);
    VLMSetObjForKey(true, QStringLiteral("adsoff"));
    presenter().resumeSplashScreen();
    EXPECT_FALSE(presenter().needsResumeSplashScreen());
    EXPECT_FALSE(presenter().videoTimer());
}

TEST_F(SplashScreenPresenterTest, AJoiningWindowGetsThePhaseThatIsShown) {
    Velmora::setSplashScreenLoadTime(8);
    Velmora::forceShow();
    EXPECT_EQ(countdown(window), QStringLiteral("13"));
    time.advance(3);
    QWidget *early = openRegistered(QStringLiteral("early"));
    const auto *ring = controller(early).outlets().lablesView->timeProgressView();
    EXPECT_EQ(ring->countSec(), 10) << "the length fixed at construction";
    EXPECT_NEAR(double(ring->val1()), 30, 1);
    EXPECT_EQ(countdown(early), QStringLiteral("10"));
    useUnplayableVideo();
    time.advance(6);
    QWidget *during = openRegistered(QStringLiteral("during"));
    EXPECT_TRUE(isShown(controller(during).outlets().lablesView));
    EXPECT_EQ(controller(during).playerlayer(), nullptr);
    time.advance(5);
    QWidget *late = openRegistered(QStringLiteral("late"));
    EXPECT_TRUE(isShown(controller(late).outlets().closeButton));
    controller(window).didVideoEnded();
    QWidget *last = openRegistered(QStringLiteral("last"));
    EXPECT_TRUE(isShown(controller(last).outlets().closeButton));
    EXPECT_FALSE(controller(last).overlay()->isHidden());
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(last)) << "registered already";
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(nullptr));
    EXPECT_EQ(presenter().SSControllers().size(), 5u);
}

TEST_F(SplashScreenPresenterTest, AWindowThatJoinsAfterAnEarlyEndWaitsForTheCloseButton) {
    useUnplayableVideo();
    QWidget *other = openWindow(QStringLiteral("other"));
    activate(window);
    Velmora::forceShow();
    time.advance(7);
    controller(window).didVideoEnded();
    activate(other);
    // Registered while the sequence is paused: its ring rests like the others.
    ASSERT_TRUE(presenter().needsResumeSplashScreen());
    QWidget *joining = openWindow(QStringLiteral("joining"));
    activate(other);
    Velmora::addSplashScreenToWindow(joining);
    const SplashScreenOutlets &outlets = controller(joining).outlets();
    EXPECT_TRUE(isShown(outlets.lablesView));
    EXPECT_FALSE(isShown(outlets.closeButton));
    time.advance(1); // shown, and redrawn once by that
    const auto progress = outlets.lablesView->timeProgressView()->val1();
    time.advance(30);
    EXPECT_EQ(outlets.lablesView->timeProgressView()->val1(), progress);
    activate(window);
    time.advance(3);
    EXPECT_TRUE(isShown(outlets.closeButton));
}

TEST_F(SplashScreenPresenterTest, ASequenceWithoutAnyWindowEndsAfterTenSeconds) {
    for (const double moment : {1.0, 6.0, 12.0}) {
        Velmora::addSplashScreenToWindow(window);
        Velmora::forceShow();
        time.advance(moment);
        Velmora::removeSplashScreenFromWindow(window);
        time.advance(9);
        EXPECT_TRUE(Velmora::isShowSplashScreen()) << moment;
        // A window in between takes it over.
        Velmora::addSplashScreenToWindow(window);
        time.advance(15);
        EXPECT_TRUE(Velmora::isShowSplashScreen()) << moment;
        EXPECT_TRUE(isShown(controller(window).outlets().closeButton)) << moment;
        Velmora::removeSplashScreenFromWindow(window);
        heard();
        time.advance(10);
        EXPECT_FALSE(Velmora::isShowSplashScreen()) << moment;
        EXPECT_EQ(heard(), (QStringList{DidClose})) << moment;
        EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateClosed);
        EXPECT_FALSE(Velmora::isADSReady());
        time.advance(120);
        EXPECT_TRUE(Velmora::isADSReady());
        EXPECT_EQ(time.timerCount(), 0u);
    }
    // A destroyed window counts as one that was taken out, and a removal of all ads ends the count.
    QWidget *doomed = openRegistered(QStringLiteral("doomed"));
    Velmora::forceShow();
    heard();
    closeWindow(doomed);
    Velmora::removeAdsNow();
    time.advance(200);
    EXPECT_FALSE(heard().contains(DidClose));
}

TEST_F(SplashScreenPresenterTest, AnyWidgetStandsForItsWindow) {
    auto *inner = new QWidget(new QWidget(window));
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(inner)) << "its window is registered";
    Velmora::setSplashScreenTopInset(30, inner);
    EXPECT_EQ(controller(window).appearance().topInset, 30);
    Velmora::removeSplashScreenFromWindow(inner);
    EXPECT_TRUE(presenter().SSControllers().empty());
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(inner));
    EXPECT_EQ(presenter().splashScreenControllerWithWindow(inner)->window(), window);
    EXPECT_TRUE(presenter().isFocus());
}

TEST_F(SplashScreenPresenterTest, TheFirstStartDelayRunsAgainOnceTheListIsEmpty) {
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
    // A window that comes back is observed once.
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(window));
    activate(third);
    activate(window);
    EXPECT_EQ(presenter().activeSplashScreenController()->window(), window);
}

TEST_F(SplashScreenPresenterTest, TheWindowThatPlaysMayBeTakenOut) {
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

TEST_F(SplashScreenPresenterTest, AClosedWindowLeavesOnlyWhenTheHostWantsIt) {
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

TEST_F(SplashScreenPresenterTest, TheHostMayDestroyAWindowAtAnyMoment) {
    useUnplayableVideo();
    // In every phase, the window that plays, then with nobody left.
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

TEST_F(SplashScreenPresenterTest, AWindowWithNewContentKeepsItsSplashScreen) {
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
    EXPECT_NE(controller(main).playerlayer(), nullptr) << "the video went on";
    controller(second).outlets().closeButton->click();
    time.advance(1);
    EXPECT_FALSE(controller(main).view()->isVisible());
    // The view itself, destroyed: the window may be registered anew.
    delete controller(second).view();
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(second));
    EXPECT_EQ(presenter().SSControllers().size(), 3u);
    delete main;
}

TEST_F(SplashScreenPresenterTest, RemovingAdsTakesEverythingAway) {
    Velmora::forceShow();
    time.advance(2);
    heard();
    std::thread worker([] { Velmora::removeAdsNow(); });
    worker.join();
    EXPECT_FALSE(Velmora::isADSRemoved());
    handleEvents();
    EXPECT_TRUE(Velmora::isADSRemoved());
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_TRUE(presenter().SSControllers().empty());
    Velmora::show();
    Velmora::forceShow();
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(window));
    EXPECT_TRUE(presenter().SSControllers().empty());
    time.advance(200);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(SplashScreenPresenterTest, TheHostMayAnswerANotificationWithAnything) {
    auto &center = NotificationCenter::defaultCenter();
    {
        const auto again = center.addObserver(VLMsplashScreenWillShow,
                                              [](const Notification &) { Velmora::forceShow(); });
        Velmora::forceShow();
        EXPECT_EQ(Velmora::splashScreenStartCount(), 1);
        presenter().didClickClose();
    }
    {
        const auto removes = center.addObserver(
            VLMtryRemoveAds, [](const Notification &) { Velmora::removeAdsNow(); });
        Velmora::forceShow();
        controller(window).outlets().removeAdsButton->click();
        handleEvents();
        EXPECT_TRUE(presenter().SSControllers().empty());
    }
    Velmora::resetAds();
    Velmora::addSplashScreenToWindow(window);
    activate(window);
    const auto removes = center.addObserver(VLMsplashScreenWillShow,
                                            [](const Notification &) { Velmora::removeAdsNow(); });
    Velmora::forceShow();
    EXPECT_FALSE(Velmora::isShowSplashScreen());
}

TEST_F(SplashScreenPresenterTest, LinkNameAndStillAreThoseOfTheFilmThatPlays) {
    AdsDownloader &downloader = *AdsDownloader::sharedInstance();
    downloader.startUpdateAllAds();
    ASSERT_TRUE(eventually([&] { return downloader.isUpdateAdsCurrentSession(); }));
    const auto draw = [&](const QString &name) {
        const QJsonObject ad{{kMainNameKey, name},
                             {kVideoCapture, QStringLiteral("/%1.mp4").arg(name)},
                             {kVideoImage, QStringLiteral("/%1.png").arg(name)},
                             {kVideoPriority, 1},
                             {kVideoURL, QStringLiteral("https://store.example/app/%1").arg(name)}};
        downloader.setReplyJSON(QJsonObject{{kMainVideoKey, QJsonArray{ad}}});
        downloader.downloadVideo();
    };
    const auto click = [&] {
        heard();
        opened.clear();
        presenter().didClickOnVideo();
    };
    useUnplayableVideo();
    const QUrl link(QStringLiteral("https://store.example/app/default"));
    Velmora::setDefaultVideoWithURL(presenter().defaultVideoUrl(), link);
    ASSERT_TRUE(eventually([] { return !presenter().defaultVideoName().isNull(); }));

    // Drawn, but its film cannot be had: the default video plays.
    draw(QStringLiteral("ghost"));
    Velmora::forceShow();
    time.advance(5);
    click();
    EXPECT_EQ(opened, QList<QUrl>{link});
    EXPECT_EQ(heard(), QStringList{QStringLiteral("clickforvideo:null")});
    EXPECT_TRUE(presenter().interstitialVideoUrl().isEmpty());
    time.advance(5);
    presenter().didClickClose();

    putInCaches(QStringLiteral("own.mp4"), "a film");
    putInCaches(QStringLiteral("own.png"), "a still");
    ASSERT_TRUE(eventually([&] {
        draw(QStringLiteral("own")); // not while the ghost is being asked for
        return !downloader.interstitialVideoURL().isEmpty();
    }));
    draw(QStringLiteral("ghost"));
    Velmora::forceShow();
    time.advance(5);
    draw(QStringLiteral("ghost"));
    click();
    EXPECT_EQ(opened, QList<QUrl>{QUrl(QStringLiteral("macappstores://store.example/app/own"))});
    EXPECT_EQ(heard(), QStringList{QStringLiteral("clickforvideo:own")});
    EXPECT_EQ(presenter().videoUrl().fileName(), QStringLiteral("own.mp4"));
    EXPECT_EQ(presenter().interstitialVideoUrl().fileName(), QStringLiteral("own.png"));
}

TEST_F(SplashScreenPresenterTest, AClickOpensTheLinkAndMutingReachesEveryWindow) {
    QWidget *second = openRegistered(QStringLiteral("second"));
    presenter().didClickOnVideo();
    EXPECT_EQ(heard(), QStringList()) << "no link at all";
    const QUrl link(QStringLiteral("https://store.example/app/id7"));
    useUnplayableVideo();
    Velmora::setDefaultVideoWithURL(presenter().defaultVideoUrl(), link);
    ASSERT_TRUE(eventually([] { return !presenter().defaultVideoName().isNull(); }));
    Velmora::forceShow();
    controller(second).outlets().urlButton->click();
    EXPECT_EQ(opened, QList<QUrl>()) << "nothing to click on yet";
    time.advance(5);
    heard();
    controller(second).outlets().urlButton->click();
    EXPECT_EQ(opened, (QList<QUrl>{link}));
    // Nobody answers the look-up of the name.
    EXPECT_EQ(heard(), (QStringList{QStringLiteral("clickforvideo:null")}));

    controller(second).outlets().soundButton->click();
    EXPECT_TRUE(presenter().isMuted());
    EXPECT_TRUE(controller(window).isMuted());
    EXPECT_TRUE(controller(second).playerlayer()->isMuted());
    QWidget *late = openRegistered(QStringLiteral("late"));
    EXPECT_TRUE(controller(late).isMuted()) << "a window that comes after the sound was turned off";
    controller(second).outlets().soundButton->click();
    EXPECT_FALSE(controller(window).isMuted());
}

} // namespace velmora::test
