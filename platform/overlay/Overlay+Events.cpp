// SPDX-License-Identifier: Apache-2.0
#include "Overlay.h"

#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>

namespace velmora {

namespace {

bool isTab(const QEvent *event) {
    const int key = static_cast<const QKeyEvent *>(event)->key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

bool Overlay::eventFilter(QObject *watched, QEvent *event) {
    if (!m_view || !m_superview)
        return false;
    if (watched == m_view)
        return viewEvent(event);
    if (watched == m_superview) {
        // A Tab that found nowhere to go in the view would go on below it.
        if (event->type() == QEvent::KeyPress && isTab(event) && m_focus->isInView())
            return true;
        superviewEvent(event);
    }
    if (watched == m_window)
        windowEvent(event);
    return false;
}

void Overlay::superviewEvent(QEvent *event) {
    switch (event->type()) {
    case QEvent::Resize:
        applyFrame();
        break;
    case QEvent::ChildAdded:
        // The new child is no widget yet while this event is delivered.
        QMetaObject::invokeMethod(this, &Overlay::keepOnTop, Qt::QueuedConnection);
        break;
    case QEvent::Show:
    case QEvent::ParentChange:
        followWindow();
        QMetaObject::invokeMethod(this, &Overlay::nativeWindowsChanged, Qt::QueuedConnection);
        break;
    default:
        break;
    }
}

void Overlay::windowEvent(QEvent *event) {
    switch (event->type()) {
    case QEvent::UpdateRequest:
        // Raising a sibling tells nobody but the sibling, yet it has the window painted; this is
        // just before.
        keepOnTop();
        break;
    case QEvent::Show:
    case QEvent::WinIdChange:
        // A host's native window that is made anew takes the native windows in it along, and
        // Qt knows nothing of it.
        if (m_siblings->follow())
            QMetaObject::invokeMethod(this, &Overlay::containerLost, Qt::QueuedConnection);
        QMetaObject::invokeMethod(this, &Overlay::nativeWindowsChanged, Qt::QueuedConnection);
        break;
    case QEvent::WindowActivate:
        m_focus->checkSoon();
        break;
    default:
        break;
    }
}

bool Overlay::viewEvent(QEvent *event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto *drop = static_cast<QDropEvent *>(event);
        drop->setDropAction(Qt::IgnoreAction);
        // Refused by the superview instead, a drag would be offered to what lies underneath.
        drop->setAccepted(event->type() == QEvent::DragEnter);
        return true;
    }
    default:
        return false;
    }
}

bool Overlay::isOnTop() const {
    return m_container ? m_container->isLastChild() : topmostChild(m_superview) == m_view;
}

void Overlay::raise() {
    if (m_container)
        m_container->raise();
    else
        m_view->raise();
}

void Overlay::keepOnTop() {
    if (m_view && m_superview && m_view->isVisible() && !isOnTop() && m_raises.allows())
        raise();
}

void Overlay::followWindow() {
    QWidget *window = m_superview->window();
    if (window == m_window)
        return;
    if (m_window && m_window != m_superview)
        m_window->removeEventFilter(this);
    m_window = window;
    window->installEventFilter(this);
}

} // namespace velmora
