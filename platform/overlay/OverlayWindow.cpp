// SPDX-License-Identifier: Apache-2.0
#include "OverlayWindow.h"

#include "MainQueue.h"
#include "OverlayRoot.h"
#include "StyleShield.h"
#include "WindowProxy.h"

#include <QtCore/QEvent>
#include <QtGui/QPlatformSurfaceEvent>

#include <algorithm>
#include <utility>

// Exported by Qt Widgets and declared in qwidget.h as a friend only.
extern Q_WIDGETS_EXPORT QWidgetData *qt_qwidget_data(QWidget *widget);

namespace velmora {

QWidget *topmostChild(const QWidget *superview) {
    const QObjectList &children = superview->children();
    const auto last = std::find_if(children.rbegin(), children.rend(), [](const QObject *child) {
        return child->isWidgetType() && !static_cast<const QWidget *>(child)->isWindow();
    });
    return last == children.rend() ? nullptr : static_cast<QWidget *>(*last);
}

OverlayWindow::OverlayWindow(QWidget *superview, NativeSiblings::Layer layer,
                             std::function<void()> lost)
    : m_superview(superview), m_root(new OverlayRoot), m_lost(std::move(lost)) {
    m_root->setWindowFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    m_root->setAttribute(Qt::WA_ShowWithoutActivating);
    m_root->setAttribute(Qt::WA_QuitOnClose, false);
    // A child of the superview would inherit it; the root widget is a window.
    m_root->setLayoutDirection(superview->layoutDirection());
    m_root->winId();
    // Qt closes all windows before it quits and gives up at the first that does not close. A native
    // child window never does, but Qt skips a widget that is being closed already.
    qt_qwidget_data(m_root)->is_closing = true;
    // The root widget is destroyed later than this object.
    new StyleShield(m_root, [self = QPointer<OverlayWindow>(this)] {
        if (self)
            self->place();
    });
    m_keyProxy = new OverlayKeyProxy(superview);
    m_keyProxy->installEventFilter(this);
    connect(m_keyProxy, &QObject::destroyed, this, &OverlayWindow::reportLostLater);
    NativeSiblings::setLayer(nativeWindow(), layer);
    nativeWindow()->installEventFilter(this);
}

OverlayWindow::~OverlayWindow() {
    nativeWindow()->removeEventFilter(this);
    leaveHost();
    // Not deleted at once: the event that leads here may have been sent to the key proxy or to a
    // widget in the root.
    if (m_keyProxy) {
        m_keyProxy->disconnect(this);
        m_keyProxy->removeEventFilter(this);
        m_keyProxy->hide();
        m_keyProxy->setParent(nullptr);
        m_keyProxy->deleteLater();
    }
    m_root->deleteLater();
}

void OverlayWindow::setView(QWidget *view) {
    m_view = view;
    view->setParent(m_root, view->windowFlags());
    view->setGeometry(m_root->rect());
    m_keyProxy->setView(view);
}

void OverlayWindow::setFrame(const QRect &frame) {
    m_frame = frame;
    place();
}

void OverlayWindow::setVisible(bool visible) {
    m_isVisible = visible;
    place();
}

void OverlayWindow::raise() {
    if (m_keyProxy)
        m_keyProxy->raise();
    nativeWindow()->raise();
}

bool OverlayWindow::isOnTop() const {
    return !m_superview || !m_keyProxy || topmostChild(m_superview) == m_keyProxy;
}

bool OverlayWindow::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
        // The key proxy is shown and hidden with the superview.
        if (watched == m_keyProxy)
            place();
        break;
    case QEvent::Move:
    case QEvent::ParentChange:
        if (watched != m_keyProxy)
            place();
        break;
    case QEvent::Expose:
        if (watched == nativeWindow()->parent())
            exposeWithHost();
        break;
    case QEvent::PlatformSurface:
        if (watched == nativeWindow() &&
            static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() ==
                QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
            // The host's native window is being destroyed, and this one with it.
            leaveHost();
            reportLostLater();
        }
        break;
    default:
        break;
    }
    return false;
}

void OverlayWindow::reportLostLater() {
    if (!std::exchange(m_isLost, true))
        MainQueue::post(this, m_lost);
}

void OverlayWindow::leaveHost() {
    m_ancestors.clear();
    // Hidden first: a visible window without a parent appears as a top-level window.
    m_root->hide();
    followHost(nullptr);
}

void OverlayWindow::followHost(QWindow *host) {
    QWindow *old = nativeWindow()->parent();
    if (old == host)
        return;
    if (old)
        old->removeEventFilter(this);
    nativeWindow()->setParent(host);
    if (host)
        host->installEventFilter(this);
}

// Under Wayland a window is not exposed while the compositor takes longer than 100 ms for a frame,
// and neither are its child windows. Qt 6.4 sends an expose event to the window afterwards, but not
// to a child whose own frame came earlier: that would never be painted again. Qt checks it at a
// change of geometry.
void OverlayWindow::exposeWithHost() {
    QWindow *native = nativeWindow();
    if (!native->isVisible() || native->isExposed() || !native->parent()->isExposed())
        return;
    const QRect frame = native->geometry();
    native->setGeometry(frame.translated(0, 1));
    native->setGeometry(frame);
}

void OverlayWindow::place() {
    if (!m_superview || !isWhole())
        return;
    m_root->resize(m_frame.size());
    if (m_view)
        m_view->resize(m_frame.size());
    QWidget *native = nativeWidgetOf(m_superview);
    QWindow *host = WindowProxy::nativeWindowOf(native);
    if (!m_isVisible || !m_keyProxy->isVisible() || m_frame.isEmpty() || !host) {
        m_root->hide();
        return;
    }
    // The native window is placed again when one of them moves.
    m_ancestors.follow(m_superview, native);
    followHost(host);
    // Not move(), which adds the margins of the host's window frame under X11.
    m_root->setGeometry({m_superview->mapTo(native, m_frame.topLeft()), m_frame.size()});
    if (m_root->isHidden()) {
        m_root->show();
        nativeWindow()->raise();
    }
}

} // namespace velmora
