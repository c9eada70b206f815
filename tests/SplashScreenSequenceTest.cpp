// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"

namespace velmora::test {

using Presenter = SplashScreenPresenter;

class SplashScreenSequenceTest : public RegisteredHost {};

TEST_F(SplashScreenSequenceTest, ASequenceRunsThroughItsPhases) {
    SplashScreenController &splash = controller(window);
    Velmora::forceShow();
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow}));
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    EXPECT_EQ(countdown(window), QStringLiteral("10"));
    time.advance(3);
    EXPECT_EQ(countdown(window), QStringLiteral("7"));
    EXPECT_EQ(presenter().stateSplashScreen(), Presenter::SplashScreenStateStart);

    // There is no video: the start screen stays and its ring goes on.
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

TEST_F(SplashScreenSequenceTest, AfterAShortVideoTheEndScreenWaitsForTheCloseButton) {
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
}

TEST_F(SplashScreenSequenceTest, APauseKeepsTheFractionOfTheSecond) {
    QWidget *other = openWindow("other");
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

    // The same in the video phase, with two pauses.
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

    // Once the close button is shown, a pause no longer changes the countdown.
    const QString left = countdown(window);
    activate(other);
    activate(window);
    time.advance(5);
    EXPECT_EQ(countdown(window), left);
    EXPECT_FALSE(presenter().tickTimer());
}

TEST_F(SplashScreenSequenceTest, AResumeAfterAdsWereRemovedDoesNothing) {
    QWidget *other = openWindow("other");
    activate(window);
    Velmora::forceShow();
    activate(other);
    VLMSetObjForKey(true, QStringLiteral("adsoff"));
    presenter().resumeSplashScreen();
    EXPECT_FALSE(presenter().needsResumeSplashScreen());
    EXPECT_FALSE(presenter().videoTimer());
}

TEST_F(SplashScreenSequenceTest, AWindowThatJoinsGetsTheViewOfThePhase) {
    Velmora::setSplashScreenLoadTime(8);
    Velmora::forceShow();
    EXPECT_EQ(countdown(window), QStringLiteral("13"));
    time.advance(3);
    QWidget *early = openRegistered("early");
    const auto *ring = controller(early).outlets().lablesView->timeProgressView();
    EXPECT_EQ(ring->countSec(), 10) << "the length fixed at construction";
    EXPECT_NEAR(double(ring->val1()), 30, 1);
    EXPECT_EQ(countdown(early), QStringLiteral("10"));
    useUnplayableVideo();
    time.advance(6);
    QWidget *during = openRegistered("during");
    EXPECT_TRUE(isShown(controller(during).outlets().lablesView));
    EXPECT_EQ(controller(during).playerlayer(), nullptr);
    time.advance(5);
    QWidget *late = openRegistered("late");
    EXPECT_TRUE(isShown(controller(late).outlets().closeButton));
    controller(window).didVideoEnded();
    QWidget *last = openRegistered("last");
    EXPECT_TRUE(isShown(controller(last).outlets().closeButton));
    EXPECT_FALSE(controller(last).overlay()->isHidden());
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(last)) << "registered already";
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(static_cast<QWidget *>(nullptr)));
    EXPECT_EQ(presenter().SSControllers().size(), 5u);
}

TEST_F(SplashScreenSequenceTest, AWindowThatJoinsAfterAShortVideoWaitsForTheCloseButton) {
    useUnplayableVideo();
    QWidget *other = openWindow("other");
    activate(window);
    Velmora::forceShow();
    time.advance(7);
    controller(window).didVideoEnded();
    activate(other);
    // A window that joins during a pause gets a ring that does not tick.
    ASSERT_TRUE(presenter().needsResumeSplashScreen());
    QWidget *joining = openWindow("joining");
    activate(other);
    Velmora::addSplashScreenToWindow(joining);
    const SplashScreenOutlets &outlets = controller(joining).outlets();
    EXPECT_TRUE(isShown(outlets.lablesView));
    EXPECT_FALSE(isShown(outlets.closeButton));
    time.advance(1); // being shown redraws the ring once
    const auto progress = outlets.lablesView->timeProgressView()->val1();
    time.advance(30);
    EXPECT_EQ(outlets.lablesView->timeProgressView()->val1(), progress);
    activate(window);
    time.advance(3);
    EXPECT_TRUE(isShown(outlets.closeButton));
}

} // namespace velmora::test
