// SPDX-License-Identifier: Apache-2.0
#include "OverlaySurroundings.h"

#include <QtCore/QEvent>

namespace velmora {

OverlaySurroundings::OverlaySurroundings(QWidget *superview) : m_superview(superview) {
    superview->installEventFilter(this);
    followWindow();
}

void OverlaySurroundings::followWindow() {
    QWidget *window = m_superview->window();
    if (window == m_window)
        return;
    if (m_window && m_window != m_superview)
        m_window->removeEventFilter(this);
    m_window = window;
    window->installEventFilter(this);
}

bool OverlaySurroundings::eventFilter(QObject *watched, QEvent *event) {
    const QPointer<OverlaySurroundings> self(this);
    // The superview may be the window itself.
    if (watched == m_superview)
        superviewEvent(event);
    if (self && watched == m_window)
        windowEvent(event);
    return false;
}

void OverlaySurroundings::superviewEvent(const QEvent *event) {
    switch (event->type()) {
    case QEvent::Resize:
        Q_EMIT superviewResized();
        break;
    case QEvent::ChildAdded:
        Q_EMIT childAdded();
        break;
    case QEvent::Show:
    case QEvent::ParentChange:
        followWindow();
        Q_EMIT superviewShown();
        break;
    default:
        break;
    }
}

void OverlaySurroundings::windowEvent(const QEvent *event) {
    switch (event->type()) {
    case QEvent::UpdateRequest:
        Q_EMIT windowAboutToPaint();
        break;
    case QEvent::Show:
    case QEvent::WinIdChange:
        Q_EMIT nativeWindowChanged();
        break;
    case QEvent::WindowActivate:
        Q_EMIT windowActivated();
        break;
    default:
        break;
    }
}

} // namespace velmora
