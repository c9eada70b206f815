// SPDX-License-Identifier: Apache-2.0
#include "OverlayExposure.h"

#include "WindowProxy.h"

#include <QtCore/QEvent>

#include <algorithm>

namespace velmora {

namespace {

constexpr double LongestWaitSeconds = 2;
// The last part of the wait. While a busy main thread delays the first part, Expose events wait in
// the queue; they are handled in this part.
constexpr double SecondWaitSeconds = 0.5;

// A widget's visible region leaves out what its opaque children cover.
bool hasVisiblePart(const QWidget *widget) {
    if (!widget->isVisible())
        return false;
    const auto children = widget->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    return !widget->visibleRegion().isEmpty() ||
           std::any_of(children.begin(), children.end(), hasVisiblePart);
}

} // namespace

void OverlayExposure::begin(QWidget *view, QWidget *superview, QWindow *own) {
    end();
    m_view = view;
    m_own = own;
    m_host = WindowProxy::nativeWindowOf(superview->window());
    if (m_own)
        m_own->installEventFilter(this);
    if (m_host)
        m_host->installEventFilter(this);
    if (m_host && m_host->isExposed())
        startWait();
}

void OverlayExposure::startWait() {
    m_timer =
        Timer::scheduled(LongestWaitSeconds - SecondWaitSeconds, Timer::Kind::OneShot, [this] {
            m_timer =
                Timer::scheduled(SecondWaitSeconds, Timer::Kind::OneShot, [this] { check(); });
        });
}

void OverlayExposure::end() {
    Timer::cancel(m_timer);
    for (const QPointer<QWindow> &window : {m_own, m_host}) {
        if (window)
            window->removeEventFilter(this);
    }
    m_own = nullptr;
    m_host = nullptr;
    m_view = nullptr;
}

bool OverlayExposure::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::Expose)
        return false;
    if (watched == m_own && m_own->isExposed())
        end(); // it may be covered by another application's window later
    else if (watched == m_host && m_host->isExposed() && !m_timer)
        startWait();
    return false;
}

void OverlayExposure::check() {
    if (m_host && !m_host->isExposed()) {
        m_timer.reset(); // until the host's window is exposed again
        return;
    }
    const bool isMissing = m_host && m_view && !isExposed();
    end();
    if (isMissing)
        m_missing();
}

bool OverlayExposure::isExposed() const {
    if (m_own && !m_own->isExposed())
        return false;
    return hasVisiblePart(m_view);
}

} // namespace velmora
