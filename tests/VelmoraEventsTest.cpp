// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <limits>
#include <thread>

namespace velmora::test {

class VelmoraEventsTest : public RegisteredHost {
protected:
    EventRecorder events;

    QString refusal() { return events.refusals().join(QStringLiteral(", ")); }
};

TEST_F(VelmoraEventsTest, EachNotificationHasASignalInTheSameOrder) {
    QStringList posted;
    std::vector<NotificationCenter::Observation> observations;
    QStringList emitted;
    QObject context;
    const auto compare = [&](const QString &name, auto signal) {
        observations.push_back(
            NotificationCenter::defaultCenter().addObserver(name, [&](const Notification &told) {
                posted.append(told.name + u':' + told.object.toString());
            }));
        QObject::connect(&VelmoraEvents::instance(), signal, &context,
                         [&emitted, name](const auto &...object) {
                             emitted.append(((name + u':') + ... + object));
                         });
    };
    compare(VLMtryRemoveAds, &VelmoraEvents::removeAdsClicked);
    compare(VLMclickForBanner, &VelmoraEvents::bannerClicked);
    compare(VLMclickForVideo, &VelmoraEvents::videoClicked);
    compare(VLMadsVideoDidStart, &VelmoraEvents::videoStarted);
    compare(VLMadsVideoDidStop, &VelmoraEvents::videoStopped);
    compare(VLMsplashScreenShowMoreOne, &VelmoraEvents::splashScreenShownAgain);
    compare(VLMsplashScreenWillShow, &VelmoraEvents::splashScreenWillShow);
    compare(VLMsplashScreenDidShow, &VelmoraEvents::splashScreenShown);
    compare(VLMsplashScreenDidClose, &VelmoraEvents::splashScreenClosed);

    Velmora::setDefaultVideoWithURL({}, QUrl(QStringLiteral("https://velmora.example/")));
    Velmora::addBannerForWindow(window);
    time.advance(20);
    auto &banner = AdBannerController::of(*Velmora::BControllFromWindow(window));
    banner.goToBannerURL();
    EXPECT_EQ(emitted, QStringList{VLMclickForBanner + u':' + banner.selectBanner()});
    for (int sequence = 0; sequence < 2; ++sequence) {
        Velmora::forceShow();
        time.advance(5);
        presenter().didClickOnVideo();
        presenter().didVideoEnded();
        time.advance(5);
        presenter().didClickRemoveAds();
        presenter().didClickClose();
    }
    EXPECT_EQ(emitted.size(), 1 + 2 * 7 + 1);
    EXPECT_EQ(emitted, posted);
}

TEST_F(VelmoraEventsTest, WhatIsRefusedTellsWhy) {
    constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
    QWidget *other = openWindow("other");
    const auto expect = [this](const char *reason) { EXPECT_EQ(refusal(), QLatin1String(reason)); };

    Velmora::show();
    expect("ShowSplashScreen NotReady");
    time.advance(40);
    Velmora::show();
    expect("ShowSplashScreen NoKeyWindow");
    Velmora::forceShow();
    expect("ShowSplashScreen NoKeyWindow");
    Velmora::addSplashScreenToWindow(window);
    expect("AddSplashScreen AlreadyAdded");
    Velmora::addSplashScreenToUnityWindow(static_cast<QWidget *>(nullptr));
    expect("AddSplashScreen NoWindow");
    std::thread([other] { Velmora::addSplashScreenToWindow(other); }).join();
    expect("AddSplashScreen WrongThread");

    activate(window); // the soft request from above
    EXPECT_TRUE(Velmora::isShowSplashScreen());
    Velmora::show();
    Velmora::showWithouSplash();
    expect("ShowSplashScreen AlreadyShown, ShowSplashScreen AlreadyShown");
    time.advance(5);
    expect("PlayVideo NoVideo");
    presenter().didClickClose();
    Velmora::removeSplashScreenFromWindow(window);
    Velmora::forceShow();
    expect("ShowSplashScreen NoRegisteredWindow");

    Velmora::setBannerHeight(60, window);
    expect("SetOption NotAdded");
    Velmora::addBannerForWindow(static_cast<QWidget *>(nullptr));
    expect("AddBanner NoWindow");
    Velmora::addBannerForViewController(nullptr, window);
    expect("AddBanner NoView");
    ViewController nowhere(nullptr);
    Velmora::addBannerForViewController(&nowhere, nullptr);
    expect("AddBanner NoView");
    Velmora::addBannerForWindow(window);
    Velmora::addBannerForWindow(window);
    expect("AddBanner AlreadyAdded");
    Velmora::setBannersBottomInset(NoNumber);
    Velmora::setSplashScreenIcon({});
    expect("SetOption InvalidValue, SetOption InvalidValue");

    Velmora::removeAdsNow();
    Velmora::show();
    Velmora::addSplashScreenToWindow(window);
    Velmora::refreshWaitAgain();
    std::thread([this] { Velmora::addBannerForWindow(window); }).join();
    expect("ShowSplashScreen AdsRemoved, AddSplashScreen AdsRemoved, RestartWait AdsRemoved, "
           "AddBanner AdsRemoved");
}

TEST_F(VelmoraEventsTest, ASlotMayDoAnythingAndIsNeverCalledInsideACallOfTheHost) {
    QObject context;
    bool isInCall = true;
    int calls = 0;
    QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::refused, &context, [&] {
        EXPECT_FALSE(isInCall);
        if (++calls > 3)
            return;
        Velmora::show();
        Velmora::forceShow();
        Velmora::removeAdsNow();
        Velmora::resetAds();
        closeWindow(std::exchange(window, nullptr));
        Velmora::addSplashScreenToWindow(openWindow("another"));
    });
    Velmora::show();
    Velmora::addBannerForWindow(static_cast<QWidget *>(nullptr));
    isInCall = false;
    for (int turn = 0; turn < 5; ++turn)
        time.advance(1);
    EXPECT_GT(calls, 3);
}

} // namespace velmora::test
