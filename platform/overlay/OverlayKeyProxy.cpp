// SPDX-License-Identifier: Apache-2.0
#include "OverlayKeyProxy.h"

#include "KeyFocus.h"
#include "SplitterGuard.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

namespace velmora {

OverlayKeyProxy::OverlayKeyProxy(QWidget *superview) {
    SplitterGuard::keepOut(this, superview);
    setParent(superview);
    // Not hidden, because a hidden widget can't have the focus. One pixel that paints nothing.
    setGeometry(0, 0, 1, 1);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    show();
}

bool OverlayKeyProxy::event(QEvent *event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return m_view && forward(event);
    case QEvent::FocusIn:
        showFocus(true);
        break;
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
        showFocus(false);
        break;
    case QEvent::WindowActivate:
        // A window that is not a widget's has no focus events.
        showFocus(window()->focusWidget() == this);
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool OverlayKeyProxy::forward(QEvent *event) {
    showFocus(true);
    // The host may destroy its window, and this object with it.
    const QPointer<QWidget> view = m_view;
    const QPointer<QWidget> inner = view->focusWidget();
    // Also Tab: the view is in a window of its own, so its focus chain stays within it.
    const bool isUsable = inner && inner->isVisible();
    const bool isUsed = QCoreApplication::sendEvent(isUsable ? inner.data() : view.data(), event);
    // In a window that is not active, the focus moves without a repaint.
    if (inner)
        inner->update();
    if (view && view->focusWidget())
        view->focusWidget()->update();
    return isUsed;
}

void OverlayKeyProxy::showFocus(bool hasKeys) {
    if (m_view && m_view->window() != window())
        KeyFocus::setForwarded(m_view->window(), hasKeys);
}

void OverlayKeyProxy::setView(QWidget *view) {
    m_view = view;
    showFocus(hasFocus());
}

} // namespace velmora
