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

Advertising::Advertising(DemoServer &server, EventLog &log, LinkOpener &links,
                         const SplashTimes &times)
    : m_server(server), m_log(log), m_links(links) {
    Velmora::activateDebugMode();
    auto &centre = velmora::NotificationCenter::defaultCenter();
    for (const QString &name : notifications())
        m_observations.push_back(centre.addObserver(
            name, [this](const velmora::Notification &notification) { record(notification); }));
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

void Advertising::record(const velmora::Notification &notification) {
    m_log.record(notification.name, notification.object.toString());
    if (notification.name == VLMtryRemoveAds)
        Q_EMIT removalWanted();
}

} // namespace demo
