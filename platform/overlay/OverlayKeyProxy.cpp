// SPDX-License-Identifier: Apache-2.0
#include "OverlayKeyProxy.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

namespace velmora {

OverlayKeyProxy::OverlayKeyProxy(QWidget *superview) : QWidget(superview) {
    // Unseen, but a hidden widget can't have the focus.
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
        // Tab goes there too: the view's own focus chain turns within the view.
        QWidget *inner = m_view->focusWidget();
        return QCoreApplication::sendEvent(inner ? inner : m_view.data(), event);
    }
    default:
        return QWidget::event(event);
    }
}

} // namespace velmora
