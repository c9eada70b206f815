// SPDX-License-Identifier: Apache-2.0
#include "NativeSiblings.h"

#include "MainQueue.h"
#include "OverlayKeyProxy.h"
#include "WindowProxy.h"

#include <QtCore/QEvent>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

constexpr const char *LayerProperty = "velmoraLayer";

NativeSiblings::Layer layerOf(const QWindow &window) {
    return NativeSiblings::Layer(window.property(LayerProperty).toInt());
}

} // namespace

QWidget *nativeWidgetOf(QWidget *superview) {
    return WindowProxy::nativeWindowOf(superview) ? superview : superview->nativeParentWidget();
}

NativeSiblings::NativeSiblings(QWidget *superview, std::function<void()> changed)
    : m_superview(superview), m_changed(std::move(changed)) {
    follow();
}

void NativeSiblings::setLayer(QWindow *window, Layer layer) {
    if (window)
        window->setProperty(LayerProperty, int(layer));
}

bool NativeSiblings::isOverlayVisible() const {
    const QObjectList children = m_root ? m_root->children() : QObjectList();
    return std::any_of(children.begin(), children.end(), [](const QObject *object) {
        const auto *child = qobject_cast<const QWindow *>(object);
        return child && child->isVisible() && layerOf(*child) == Layer::Overlay;
    });
}

bool NativeSiblings::areVisible(Layer layer, const QRect &frame) const {
    const QWidget *native = nativeWidgetOf(m_superview);
    const QWindow *root = WindowProxy::nativeWindowOf(native);
    if (!root)
        return false;
    if (WindowProxy::hostOf(native))
        return true;
    const QRect covered(m_superview->mapTo(native, frame.topLeft()), frame.size());
    for (const QObject *object : root->children()) {
        const auto *child = qobject_cast<const QWindow *>(object);
        if (child && layerOf(*child) < layer && child->isVisible() &&
            child->geometry().intersects(covered))
            return true;
    }
    return false;
}

bool NativeSiblings::follow() {
    QWindow *root = WindowProxy::nativeWindowOf(nativeWidgetOf(m_superview));
    if (root == m_root)
        return false;
    if (m_root) {
        m_root->removeEventFilter(this);
        for (QObject *child : m_root->children())
            child->disconnect(this);
    }
    m_root = root;
    if (!root)
        return false;
    root->installEventFilter(this);
    watchChildren();
    return std::exchange(m_hadRoot, true);
}

bool NativeSiblings::eventFilter(QObject *watched, QEvent *event) {
    const bool isAdded = watched == m_root && event->type() == QEvent::ChildAdded;
    if (isAdded || event->type() == QEvent::ZOrderChange)
        reportLater();
    return false;
}

// A QWindow does not tell that it was raised. A widget of the host does.
void NativeSiblings::watchOrder(QWindow &child) {
    QWidget *widget = child.handle() ? QWidget::find(child.winId()) : nullptr;
    if (widget && layerOf(child) == Layer::Host && !qobject_cast<OverlayKeyProxy *>(widget))
        widget->installEventFilter(this);
}

void NativeSiblings::watchChildren() {
    for (QObject *object : m_root->children()) {
        auto *child = qobject_cast<QWindow *>(object);
        if (!child)
            continue;
        child->disconnect(this);
        watchOrder(*child);
        connect(child, &QWindow::visibleChanged, this, &NativeSiblings::reportLater);
        connect(child, &QWindow::xChanged, this, &NativeSiblings::reportLater);
        connect(child, &QWindow::yChanged, this, &NativeSiblings::reportLater);
        connect(child, &QWindow::widthChanged, this, &NativeSiblings::reportLater);
        connect(child, &QWindow::heightChanged, this, &NativeSiblings::reportLater);
    }
}

void NativeSiblings::reportLater() {
    if (std::exchange(m_reportPosted, true))
        return;
    // Later, because a child that is just being added is not a QWindow yet.
    MainQueue::post(this, [this] {
        m_reportPosted = false;
        if (m_root)
            watchChildren();
        m_changed();
    });
}

} // namespace velmora
