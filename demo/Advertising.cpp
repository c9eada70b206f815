// SPDX-License-Identifier: Apache-2.0
#include "demo/Advertising.h"

#include "demo/AppIcon.h"
#include "demo/EventLog.h"
#include "demo/SplashLook.h"

#include <Velmora/Velmora.h>

namespace demo {

namespace {
constexpr int IconSide = 512;
}

Advertising::Advertising(DemoServer &server, EventLog &log, LinkOpener &links, Reader &reader,
                         const SplashTimes &times)
    : m_server(server), m_log(log), m_links(links), m_reader(reader) {
    Velmora::activateDebugMode();
    recordSignals();
    connect(&VelmoraEvents::instance(), &VelmoraEvents::removeAdsClicked, this,
            &Advertising::removalWanted);
    Velmora::setBannersReserveSpace(true);
    Velmora::setSplashScreenSkippedWhenEmpty(true);
    setTimes(times);
    Velmora::setSplashScreenIcon(AppIcon::picture(IconSide));
    // No colours, so that the panel can choose a preset for them.
    Velmora::setSplashScreenBackgroundImageScaling(SplashLook::day().scaling);
}

const QStringList &Advertising::notifications() {
    static const QStringList names{
        VLMtryRemoveAds,         VLMclickForBanner,      VLMclickForVideo,
        VLMadsVideoDidStart,     VLMadsVideoDidStop,     VLMsplashScreenShowMoreOne,
        VLMsplashScreenWillShow, VLMsplashScreenDidShow, VLMsplashScreenDidClose};
    return names;
}

void Advertising::setTimes(const SplashTimes &times) {
    m_times = times;
    Velmora::setSplashScreenDelay(times.delay);
    Velmora::setSplashScreenLoadTime(times.load);
    Velmora::setSplashScreenWaitingVideoTimeSeconds(times.wait);
}

void Advertising::addWindow(QWidget *window) {
    m_windows.append(window);
    Velmora::addBannerForWindow(window);
    Velmora::addSplashScreenToWindow(window);
}

void Advertising::pageTurned() {
    Velmora::show();
}

void Advertising::removeAds() {
    Velmora::removeAdsNow();
    m_log.record(QStringLiteral("ads-removed"));
}

void Advertising::resetAds() {
    m_log.record(QStringLiteral("ads-reset"));
    Velmora::resetAds();
    m_windows.removeAll(nullptr);
    for (const auto &window : std::as_const(m_windows)) {
        Velmora::addBannerForWindow(window);
        Velmora::addSplashScreenToWindow(window);
    }
}

template<class Signal>
void Advertising::recordAs(const QString &name, Signal signal) {
    connect(&VelmoraEvents::instance(), signal, this,
            [this, name](const auto &...text) { m_log.record(name, text...); });
}

void Advertising::recordSignals() {
    recordAs(VLMtryRemoveAds, &VelmoraEvents::removeAdsClicked);
    recordAs(VLMclickForBanner, &VelmoraEvents::bannerClicked);
    recordAs(VLMclickForVideo, &VelmoraEvents::videoClicked);
    recordAs(VLMadsVideoDidStart, &VelmoraEvents::videoStarted);
    recordAs(VLMadsVideoDidStop, &VelmoraEvents::videoStopped);
    recordAs(VLMsplashScreenShowMoreOne, &VelmoraEvents::splashScreenShownAgain);
    recordAs(VLMsplashScreenWillShow, &VelmoraEvents::splashScreenWillShow);
    recordAs(VLMsplashScreenDidShow, &VelmoraEvents::splashScreenShown);
    recordAs(VLMsplashScreenDidClose, &VelmoraEvents::splashScreenClosed);
    connect(
        &VelmoraEvents::instance(), &VelmoraEvents::refused, this,
        [this](auto, auto, const QString &text) { m_log.record(QStringLiteral("refused"), text); });
}

} // namespace demo
