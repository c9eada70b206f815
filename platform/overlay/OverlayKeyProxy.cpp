// SPDX-License-Identifier: Apache-2.0
#include "OverlayKeyProxy.h"

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
    case QEvent::ShortcutOverride: {
        if (!m_view)
            return false;
        // Also Tab: the view is in a window of its own, so its focus chain stays within it.
        QWidget *inner = m_view->focusWidget();
        return QCoreApplication::sendEvent(inner ? inner : m_view.data(), event);
    }
    default:
        return QWidget::event(event);
    }
}

} // namespace velmora
