#include "demo/Advertising.h"

#include "demo/EventLog.h"

#include <Velmora/Velmora.h>

namespace demo {

Advertising::Advertising(DemoServer &server, EventLog &log, LinkOpener &links)
    : m_server(server), m_log(log), m_links(links) {
    Velmora::activateDebugMode();
    auto &centre = velmora::NotificationCenter::defaultCenter();
    for (const QString &name : {VLMtryRemoveAds, VLMclickForBanner})
        m_observations.push_back(centre.addObserver(
            name, [this](const velmora::Notification &notification) { hear(notification); }));
}

void Advertising::addWindow(QWidget *window) {
    m_windows.append(window);
    Velmora::addBannerForWindow(window);
}

void Advertising::removeAds() {
    Velmora::removeAdsNow();
    m_log.record(QStringLiteral("ads-removed"));
}

void Advertising::resetAds() {
    m_log.record(QStringLiteral("ads-reset"));
    Velmora::resetAds();
    m_windows.removeAll(nullptr);
    for (const auto &window : std::as_const(m_windows))
        Velmora::addBannerForWindow(window);
}

void Advertising::hear(const velmora::Notification &notification) {
    m_log.record(notification.name, notification.object.toString());
    if (notification.name == VLMtryRemoveAds)
        Q_EMIT removalWanted();
}

} // namespace demo
