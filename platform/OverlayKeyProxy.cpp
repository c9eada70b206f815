#include "platform/OverlayKeyProxy.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

namespace velmora {

OverlayKeyProxy::OverlayKeyProxy(QWidget *root, QWidget *superview)
    : QWidget(superview), m_root(root) {
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
        QWidget *target = m_root ? m_root->focusWidget() : nullptr;
        // Tab goes there too: the view's own focus chain turns within the view.
        return target && QCoreApplication::sendEvent(target, event);
    }
    default:
        return QWidget::event(event);
    }
}

} // namespace velmora
