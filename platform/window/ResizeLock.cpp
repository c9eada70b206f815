// SPDX-License-Identifier: Apache-2.0
#include "ResizeLock.h"

#include "WindowProxy.h"

#include <QtCore/QEvent>
#include <QtGui/QWindow>

#include <utility>

namespace velmora {

ResizeLock::ResizeLock(QWidget *window) : m_window(window) {
    window->installEventFilter(this);
    if (window->isVisible() && isNormal())
        lock();
}

ResizeLock::~ResizeLock() {
    unlock();
}

bool ResizeLock::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_window)
        return false;
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Resize:
        if (m_window->isVisible() && isNormal())
            lock();
        break;
    case QEvent::WindowStateChange:
        // A window that leaves these states still has its large size here. It is locked at the
        // Resize event that follows.
        if (!isNormal())
            unlock();
        break;
    case QEvent::LayoutRequest:
    case QEvent::UpdateRequest:
    case QEvent::WindowActivate:
    case QEvent::WinIdChange:
        // When the host or a layout changes the widget's limits, Qt copies them to the QWindow.
        if (m_size && m_window->isVisible())
            lock();
        break;
    default:
        break;
    }
    return false;
}

bool ResizeLock::isNormal() const {
    const QWindow *host = WindowProxy::hostOf(m_window);
    const Qt::WindowStates states = host ? host->windowStates() : m_window->windowState();
    return !(states & (Qt::WindowMaximized | Qt::WindowFullScreen));
}

void ResizeLock::lock() {
    const QWindow *host = WindowProxy::hostOf(m_window);
    if (host && !m_size)
        m_limitsBefore = {host->minimumSize(), host->maximumSize()};
    m_size = m_window->size();
    setLimits({*m_size, *m_size});
}

void ResizeLock::unlock() {
    if (!std::exchange(m_size, std::nullopt))
        return;
    setLimits(m_limitsBefore.value_or(Limits{m_window->minimumSize(), m_window->maximumSize()}));
}

void ResizeLock::setLimits(const Limits &limits) {
    const auto &[minimum, maximum] = limits;
    QWindow *native = WindowProxy::nativeWindowOf(m_window);
    if (!native || (native->minimumSize() == minimum && native->maximumSize() == maximum))
        return;
    // In this order the minimum never exceeds the maximum, which would resize the native window.
    native->setMinimumSize(minimum.boundedTo(native->maximumSize()));
    native->setMaximumSize(maximum);
    native->setMinimumSize(minimum);
}

} // namespace velmora
