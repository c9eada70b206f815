// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenPlacement.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

void SplashScreenPlacement::place(QWidget *view, QWidget *window, Overlay::Kind kind,
                                  Handlers handlers) {
    m_window = window;
    m_kind = kind;
    m_handlers = std::move(handlers);
    m_area = std::make_unique<ContentArea>(window, [this] { applyTopInset(); });
    if (QWidget *superview = m_area->superview())
        putOver(superview, view);
}

void SplashScreenPlacement::putOver(QWidget *superview, QWidget *view) {
    m_overlay = std::make_unique<Overlay>(view, superview, m_kind);
    m_overlay->setSuperviewLostHandler(m_handlers.contentLost);
    m_overlay->setMissingHandler(m_handlers.missing);
}

void SplashScreenPlacement::replace() {
    QWidget *superview = m_window && m_area ? m_area->superview() : nullptr;
    QWidget *view = superview && m_overlay ? m_overlay->takeView() : nullptr;
    if (!view)
        return;
    putOver(superview, view);
    applyTopInset();
    m_overlay->setHidden(m_isHidden);
}

void SplashScreenPlacement::remove() {
    if (m_overlay)
        m_overlay->remove();
}

void SplashScreenPlacement::setHidden(bool hidden) {
    m_isHidden = hidden;
    if (m_overlay)
        m_overlay->setHidden(hidden);
}

void SplashScreenPlacement::setTopInset(double inset) {
    m_topInset = inset;
    applyTopInset();
}

void SplashScreenPlacement::applyTopInset() {
    if (!hasContent())
        return;
    // Larger than any screen, and small enough for an int.
    constexpr double LargestInset = 100'000;
    const int inset = int(std::lround(std::clamp(m_topInset, -LargestInset, LargestInset)));
    m_overlay->setFrame(m_area->rect().adjusted(0, inset, 0, 0));
}

} // namespace velmora
