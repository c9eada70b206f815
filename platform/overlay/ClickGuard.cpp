// SPDX-License-Identifier: Apache-2.0
#include "ClickGuard.h"

#include "HostWindows.h"

#include <QtGui/QPointerEvent>
#include <QtWidgets/QApplication>

namespace velmora {

void ClickGuard::begin(QWidget *superview, const QRect &frame, double seconds) {
    new ClickGuard(superview, frame, seconds);
}

ClickGuard::ClickGuard(QWidget *superview, const QRect &frame, double seconds)
    : QObject(superview),
      m_superview(superview),
      m_frame(frame),
      m_timer(Timer::scheduled(seconds, Timer::Kind::OneShot, [this] { endIfDone(); })) {
    qApp->installEventFilter(this);
}

bool ClickGuard::eventFilter(QObject *watched, QEvent *event) {
    auto *window = qobject_cast<QWindow *>(watched);
    if (!window)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        return takesPress(window, event);
    case QEvent::Wheel:
        return m_timer->isValid() && isInside(window, event);
    case QEvent::MouseMove:
    case QEvent::TouchUpdate:
    case QEvent::TabletMove:
        return m_pressed == window;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletRelease:
        if (m_pressed != window)
            return false;
        forgetPress();
        return true;
    case QEvent::WindowBlocked: // by a modal dialog: Qt drops the release
        if (m_pressed == window)
            forgetPress();
        return false;
    default:
        return false;
    }
}

bool ClickGuard::takesPress(QWindow *window, QEvent *event) {
    const bool takes = m_timer->isValid() && isInside(window, event);
    if (takes) {
        event->accept();
        m_pressed = window;
    } else {
        forgetPress(); // its release was lost
    }
    return takes;
}

void ClickGuard::forgetPress() {
    m_pressed.clear();
    endIfDone();
}

bool ClickGuard::isInside(const QWindow *window, const QEvent *event) const {
    const auto &points = static_cast<const QPointerEvent *>(event)->points();
    if (points.isEmpty() || !HostWindows::isIn(m_superview, window))
        return false;
    const QPoint origin = m_superview->mapToGlobal(QPoint());
    return m_frame.contains(points.first().globalPosition().toPoint() - origin);
}

void ClickGuard::endIfDone() {
    if (m_pressed || m_timer->isValid())
        return;
    qApp->removeEventFilter(this);
    deleteLater();
}

} // namespace velmora
