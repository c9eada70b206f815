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
        // Back to normal, the window still has the big size; the resize to come holds it.
        if (!isNormal())
            unlock();
        break;
    case QEvent::LayoutRequest:
    case QEvent::UpdateRequest:
    case QEvent::WindowActivate:
    case QEvent::WinIdChange:
        // The widget's own limits went over ours when the host or its layout changed them.
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
    // Never a minimum above the maximum in between: the native window would be resized.
    native->setMinimumSize(minimum.boundedTo(native->maximumSize()));
    native->setMaximumSize(maximum);
    native->setMinimumSize(minimum);
}

} // namespace velmora
