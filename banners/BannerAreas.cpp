// SPDX-License-Identifier: Apache-2.0
#include "BannerAreas.h"

#include "AdBannerController.h"
#include "EventSource.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "WindowProxy.h"

#include <QtCore/QHash>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

QRect rectOfBannerIn(const QWidget *window,
                     const std::vector<std::shared_ptr<BannerController>> &banners) {
    QRect last;
    for (const auto &banner : banners) {
        if (AdBannerController::of(*banner).hostWindow() != window)
            continue;
        const QRect rect = banner->rectInWindow();
        if (!rect.isEmpty())
            last = rect;
    }
    return last;
}

} // namespace

BannerAreas &BannerAreas::current() {
    return ProcessRoot::get<BannerAreas>();
}

void BannerAreas::checkLater() {
    BannerAreas *areas = ProcessRoot::existing<BannerAreas>();
    if (!areas || std::exchange(areas->m_isCheckPosted, true))
        return;
    MainQueue::post([] {
        if (BannerAreas *posted = ProcessRoot::existing<BannerAreas>())
            posted->check();
    });
}

void BannerAreas::setReservesSpace(bool on) {
    m_reservesSpace = on;
    checkLater();
}

void BannerAreas::check() {
    m_isCheckPosted = false;
    const Banners banners = existingBanners();
    reserveSpace(banners);
    tellHost(banners);
}

BannerAreas::Banners BannerAreas::existingBanners() {
    std::erase_if(m_banners, [](const auto &banner) { return banner.expired(); });
    Banners existing;
    for (const auto &banner : m_banners) {
        if (auto known = banner.lock())
            existing.push_back(std::move(known));
    }
    return existing;
}

void BannerAreas::reserveSpace(const Banners &banners) {
    QHash<const QWidget *, int> heights;
    for (const auto &banner : banners) {
        const QWidget *view = banner->viewIfLoaded();
        QWidget *superview = view ? view->parentWidget() : nullptr;
        if (!m_reservesSpace || !superview || banner->isBannerHidden())
            continue;
        // Several banners may lie in one view, one over the other.
        int &height = heights[superview];
        height = std::max(height, superview->height() - view->y());
        if (std::none_of(m_reserved.begin(), m_reserved.end(),
                         [=](const auto &known) { return known->superview() == superview; }))
            m_reserved.push_back(std::make_shared<ReservedSpace>(superview));
    }
    // A copy: a change of margins runs code of the host, such as a resizeEvent(), which may run an
    // event loop with another check in it.
    const auto all = m_reserved;
    for (const auto &reserved : all)
        reserved->setHeight(heights.value(reserved->superview()));
    std::erase_if(m_reserved, [](const auto &reserved) { return !reserved->superview(); });
}

void BannerAreas::tellHost(const Banners &banners) {
    VelmoraEvents *events = EventSource::existing();
    if (!events)
        return;
    std::erase_if(m_told, [](const Told &told) { return !told.window; });
    QList<QPointer<QWidget>> windows;
    for (const Told &told : m_told)
        windows.append(told.window);
    for (const auto &banner : banners) {
        QWidget *window = AdBannerController::of(*banner).hostWindow();
        if (window && !windows.contains(window))
            windows.append(window);
    }
    // A slot may destroy windows and banners. What the next window is told is read after that.
    for (const QPointer<QWidget> &window : std::as_const(windows)) {
        if (!window)
            continue;
        const QRect rect = rectOfBannerIn(window, banners);
        if (std::exchange(toldAbout(window).rect, rect) == rect)
            continue;
        if (QWindow *host = WindowProxy::hostOf(window))
            Q_EMIT events->windowBannerRectChanged(host, rect);
        else
            Q_EMIT events->bannerRectChanged(window, rect);
    }
}

BannerAreas::Told &BannerAreas::toldAbout(QWidget *window) {
    for (Told &told : m_told) {
        if (told.window == window)
            return told;
    }
    return m_told.emplace_back(Told{window, {}});
}

} // namespace velmora
