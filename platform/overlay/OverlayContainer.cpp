// SPDX-License-Identifier: Apache-2.0
#include "OverlayContainer.h"

#include "MainQueue.h"
#include "OverlayRoot.h"
#include "StyleShield.h"

#include <QtCore/QEvent>
#include <QtGui/QPlatformSurfaceEvent>

#include <algorithm>

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

OverlayContainer::OverlayContainer(QWidget *superview, std::function<void()> lost)
    : m_root(new OverlayRoot), m_shell(new QWindow), m_lost(std::move(lost)) {
    constexpr auto Flags = Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
    m_root->setWindowFlags(Flags);
    m_root->setAttribute(Qt::WA_ShowWithoutActivating);
    m_root->setAttribute(Qt::WA_QuitOnClose, false);
    // A child of the superview would inherit it; the root widget is a window.
    m_root->setLayoutDirection(superview->layoutDirection());
    m_root->winId();
    // Qt closes all windows before it quits and gives up at the first that does not close. A native
    // child window never does, but Qt skips a widget that is being closed already.
    qt_qwidget_data(m_root)->is_closing = true;

    m_shell->setFlags(Flags);
    m_shell->installEventFilter(this);
    connect(m_shell, &QWindow::visibleChanged, m_root, &QWidget::setVisible);
    m_container = QWidget::createWindowContainer(m_shell, superview);
    m_container->setFocusPolicy(Qt::NoFocus);
    m_container->hide();
    // The root widget is destroyed later than this object.
    new StyleShield(m_root, [self = QPointer<OverlayContainer>(this)] {
        if (self)
            self->fillShell();
    });
    new StyleShield(m_container, [this] { m_container->setGeometry(m_frame); });
    m_root->windowHandle()->setParent(m_shell);
    m_keyProxy = new OverlayKeyProxy(superview);
    connect(m_keyProxy, &QObject::destroyed, this, &OverlayContainer::reportLostLater);
}

OverlayContainer::~OverlayContainer() {
    if (m_shell) {
        m_shell->removeEventFilter(this);
        leaveShell();
    }
    delete m_container;
    // Not deleted at once: the event that leads here may have been sent to the key proxy or to a
    // widget in the root.
    if (m_keyProxy) {
        m_keyProxy->disconnect(this);
        m_keyProxy->hide();
        m_keyProxy->setParent(nullptr);
        m_keyProxy->deleteLater();
    }
    m_root->deleteLater();
}

void OverlayContainer::setView(QWidget *view) {
    m_view = view;
    m_keyProxy->setView(view);
    view->setParent(m_root, view->windowFlags());
    view->setGeometry(m_root->rect());
}

void OverlayContainer::setFrame(const QRect &frame) {
    m_frame = frame;
    if (m_container)
        m_container->setGeometry(frame);
    fillShell();
}

void OverlayContainer::setVisible(bool visible) {
    if (m_container)
        m_container->setVisible(visible);
}

void OverlayContainer::raise() {
    if (!m_container)
        return;
    m_container->raise();
    // QWidget::raise() leaves the native window as it is when the container is the last child
    // already, although another native window may lie over it.
    if (QWindow *native = window())
        native->raise();
}

QWindow *OverlayContainer::window() const {
    // The container has a native window of its own only when its siblings have one.
    QWindow *native = m_container ? m_container->windowHandle() : nullptr;
    return native ? native : m_shell.data();
}

bool OverlayContainer::isLastChild() const {
    return !m_container || topmostChild(m_container->parentWidget()) == m_container;
}

bool OverlayContainer::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_shell)
        return false;
    if (event->type() == QEvent::Resize) {
        fillShell();
    } else if (event->type() == QEvent::PlatformSurface &&
               static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() ==
                   QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
        leaveShell();
        reportLostLater();
    }
    return false;
}

void OverlayContainer::reportLostLater() {
    MainQueue::post(this, m_lost);
}

void OverlayContainer::leaveShell() {
    m_shell->disconnect(m_root);
    // Hidden first: a visible window without a parent appears as a top-level window.
    m_root->hide();
    m_root->windowHandle()->setParent(nullptr);
}

void OverlayContainer::fillShell() {
    if (!m_shell)
        return;
    m_root->setGeometry({QPoint(), m_shell->size()});
    if (m_view)
        m_view->setGeometry(m_root->rect());
}

} // namespace velmora
