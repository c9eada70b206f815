// SPDX-License-Identifier: Apache-2.0
#include "ResizeLock.h"

#include "WindowProxy.h"

#include <QtCore/QEvent>
#include <QtGui/QWindow>

#include <utility>

namespace velmora {

namespace {

// In this time a window manager maximises a window, if it does that.
constexpr double SettlingSeconds = 0.3;

} // namespace

ResizeLock::ResizeLock(QWidget *window) : m_window(window) {
    window->installEventFilter(this);
    if (const QWindow *host = WindowProxy::hostOf(window)) {
        m_hostLimits = {host->minimumSize(), host->maximumSize()};
        for (const auto signal : {&QWindow::minimumWidthChanged, &QWindow::minimumHeightChanged,
                                  &QWindow::maximumWidthChanged, &QWindow::maximumHeightChanged})
            connect(host, signal, this, &ResizeLock::hostLimitsChanged);
    }
    if (window->isVisible() && isNormal())
        lock();
}

ResizeLock::~ResizeLock() {
    Timer::cancel(m_settling);
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
        Timer::cancel(m_settling);
        m_settling = Timer::scheduled(SettlingSeconds, Timer::Kind::OneShot,
                                      [this, size = m_window->size()] { stateSettled(size); });
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

Qt::WindowStates ResizeLock::states() const {
    const QWindow *host = WindowProxy::hostOf(m_window);
    return host ? host->windowStates() : m_window->windowState();
}

bool ResizeLock::isNormal() const {
    return !(states() & (Qt::WindowMaximized | Qt::WindowFullScreen));
}

// A window manager does not maximise a window whose size is fixed, and the host has asked for that
// before the lock could end. Nor does a window that was never maximised get a Resize event when it
// is to be normal again.
void ResizeLock::stateSettled(const QSize &sizeBefore) {
    m_settling.reset();
    QWindow *native = WindowProxy::nativeWindowOf(m_window);
    if (!native || !m_window->isVisible())
        return;
    if (isNormal()) {
        m_hasAskedAgain = false;
        lock();
    } else if (m_window->size() == sizeBefore && !std::exchange(m_hasAskedAgain, true)) {
        const Qt::WindowStates wanted = states();
        native->setWindowStates(wanted & ~(Qt::WindowMaximized | Qt::WindowFullScreen));
        native->setWindowStates(wanted);
    }
}

void ResizeLock::lock() {
    m_size = m_window->size();
    setLimits({*m_size, *m_size});
}

void ResizeLock::unlock() {
    if (!std::exchange(m_size, std::nullopt))
        return;
    setLimits(m_hostLimits.value_or(Limits{m_window->minimumSize(), m_window->maximumSize()}));
}

void ResizeLock::setLimits(const Limits &limits) {
    const auto &[minimum, maximum] = limits;
    QWindow *native = WindowProxy::nativeWindowOf(m_window);
    if (!native || (native->minimumSize() == minimum && native->maximumSize() == maximum))
        return;
    m_isSettingLimits = true;
    // In this order the minimum never exceeds the maximum, which would resize the native window.
    native->setMinimumSize(minimum.boundedTo(native->maximumSize()));
    native->setMaximumSize(maximum);
    native->setMinimumSize(minimum);
    m_isSettingLimits = false;
}

void ResizeLock::hostLimitsChanged() {
    const QWindow *host = WindowProxy::hostOf(m_window);
    if (m_isSettingLimits || !host)
        return;
    if (!m_size || host->minimumSize() != *m_size)
        m_hostLimits->minimum = host->minimumSize();
    if (!m_size || host->maximumSize() != *m_size)
        m_hostLimits->maximum = host->maximumSize();
    if (m_size)
        lock();
}

} // namespace velmora
