// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

namespace velmora::test {

using Presenter = SplashScreenPresenter;

class SplashScreenPresenterTest : public RegisteredHost {};

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
    QWidget *other = openWindow("other");
    Velmora::forceShow();
    EXPECT_FALSE(presenter().isNeedShow());
    activate(window);
    EXPECT_EQ(heard(), QStringList());

    // The key status left between sequences: the active window is still known, but is not key.
    activate(other);
    EXPECT_TRUE(presenter().activeSplashScreenController());
    Velmora::show();
    EXPECT_TRUE(presenter().isNeedShow());
    EXPECT_EQ(heard(), QStringList());
    activate(window);
    EXPECT_EQ(heard(), (QStringList{WillShow, DidShow}));
    EXPECT_FALSE(presenter().isNeedShow());
}

TEST_F(SplashScreenPresenterTest, AForcedRequestCancelsTheWaitEvenWhenItIsRefused) {
    openWindow("other");
    Velmora::forceShow();
    EXPECT_EQ(heard(), QStringList());
    time.advance(1000);
    EXPECT_FALSE(Velmora::isADSReady()) << "no timer is left that would end the wait";
    Velmora::refreshWaitAgain();
    time.advance(120);
    EXPECT_TRUE(Velmora::isADSReady());
}

TEST_F(SplashScreenPresenterTest, MovingTheKeyStatusBetweenRegisteredWindowsIsNoPause) {
    QWidget *second = openRegistered("second");
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

TEST_F(SplashScreenPresenterTest, ASequenceWithoutAnyWindowEndsAfterTenSeconds) {
    for (const double moment : {1.0, 6.0, 12.0}) {
        Velmora::addSplashScreenToWindow(window);
        Velmora::forceShow();
        time.advance(moment);
        Velmora::removeSplashScreenFromWindow(window);
        time.advance(9);
        EXPECT_TRUE(Velmora::isShowSplashScreen()) << moment;
        // A window that is registered in time joins the sequence.
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
}

TEST_F(SplashScreenPresenterTest, TheHostMayCallAnythingInsideANotification) {
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

} // namespace velmora::test
