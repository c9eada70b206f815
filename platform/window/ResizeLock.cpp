// SPDX-License-Identifier: Apache-2.0
#include "ResizeLock.h"

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
    return !(m_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen));
}

void ResizeLock::lock() {
    m_size = m_window->size();
    setLimits(*m_size, *m_size);
}

void ResizeLock::unlock() {
    if (!std::exchange(m_size, std::nullopt))
        return;
    setLimits(m_window->minimumSize(), m_window->maximumSize());
}

void ResizeLock::setLimits(const QSize &minimum, const QSize &maximum) {
    QWindow *native = m_window->windowHandle();
    if (!native || (native->minimumSize() == minimum && native->maximumSize() == maximum))
        return;
    // In this order the minimum never exceeds the maximum, which would resize the native window.
    native->setMinimumSize(minimum.boundedTo(native->maximumSize()));
    native->setMaximumSize(maximum);
    native->setMinimumSize(minimum);
}

} // namespace velmora
