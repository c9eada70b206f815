// SPDX-License-Identifier: Apache-2.0
#include "OverlayAccessibility.h"

#include "CoveredAccessible.h"
#include "CoveredObjectAccessible.h"
#include "MainQueue.h"
#include "OverlayDialogAccessible.h"
#include "OverlayKeyProxy.h"
#include "WindowProxy.h"

#include <QtWidgets/QApplication>

#include <utility>

namespace velmora {

namespace {

// All that exist. A static, because Qt calls the factory without a context; never destroyed,
// because Qt may still call it when another thread is in exit().
QList<OverlayAccessibility *> &instances() {
    static auto &all = *new QList<OverlayAccessibility *>;
    return all;
}

void deleteInterface(QObject *object) {
    if (QAccessibleInterface *found = QAccessible::queryAccessibleInterface(object))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(found));
}

// The objects below an interface that are not widgets.
QObjectList objectsIn(QAccessibleInterface *parent) {
    QObjectList found;
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        if (child && child->object() && !child->object()->isWidgetType())
            found << child->object() << objectsIn(child);
    }
    return found;
}

void tell(QObject *object, QAccessible::Event what) {
    if (!object || !QAccessible::queryAccessibleInterface(object))
        return;
    QAccessibleEvent event(object, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

OverlayAccessibility::OverlayAccessibility(QWidget *view, QWidget *superview)
    : m_view(view), m_superview(superview) {
    instances().append(this);
    QAccessible::installFactory(makeInterface);
    QAccessible::installActivationObserver(this);
    // The view may have one of another class already, for example since it got its name.
    if (QAccessible::isActive())
        deleteInterface(view);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (m_isActive && qobject_cast<OverlayKeyProxy *>(now))
            tellFocus();
    });
}

OverlayAccessibility::~OverlayAccessibility() {
    end();
    QAccessible::removeActivationObserver(this);
    instances().removeOne(this);
}

QObject *OverlayAccessibility::place() const {
    if (!m_superview)
        return nullptr;
    if (QWindow *host = WindowProxy::hostOf(m_superview->window()))
        return host;
    return m_superview;
}

void OverlayAccessibility::begin() {
    if (!m_view || !m_superview || std::exchange(m_isActive, true))
        return;
    // Qt asks the factory first that was installed last.
    QAccessible::removeFactory(makeInterface);
    QAccessible::installFactory(makeInterface);
    // Later, because assistive technology may be the cause: an interface of the host's may be
    // performing the action that shows the overlay.
    MainQueue::post(this, [this] { deleteHostInterfaces(); });
}

void OverlayAccessibility::end() {
    if (!std::exchange(m_isActive, false))
        return;
    m_coveredObjects.clear();
    const QPointer<QObject> place = this->place();
    const auto replaced = std::exchange(m_replaced, {});
    if (replaced.contains(place))
        tell(place, QAccessible::ObjectDestroyed);
    for (const auto &object : replaced) {
        if (object)
            deleteInterface(object);
    }
    if (QAccessible::isActive())
        tell(place, QAccessible::ObjectCreated);
}

void OverlayAccessibility::accessibilityActiveChanged(bool active) {
    if (active)
        MainQueue::post(this, [this] { deleteHostInterfaces(); });
}

// Without assistive technology nobody uses the interfaces that there are.
void OverlayAccessibility::deleteHostInterfaces() {
    QObject *place = this->place();
    if (!m_isActive || !place || !QAccessible::isActive())
        return;
    tell(place, QAccessible::ObjectDestroyed);
    if (place == m_superview)
        deleteInterfacesOf(m_superview);
    else if (QAccessibleInterface *window = QAccessible::queryAccessibleInterface(place)) {
        deleteInterfacesOfObjects(window);
        deleteInterface(place);
    }
    tell(place, QAccessible::ObjectCreated);
    tellFocus();
}

// In a native window of its own the view never has the focus for Qt.
void OverlayAccessibility::tellFocus() {
    const QWidget *focus = QApplication::focusWidget();
    const auto *proxy = qobject_cast<const OverlayKeyProxy *>(focus);
    if (!focus || !m_view ||
        (proxy ? proxy->parentWidget() != m_superview : !m_view->isAncestorOf(focus)))
        return;
    QWidget *inner = m_view->focusWidget();
    tell(inner ? inner : m_view.data(), QAccessible::Focus);
}

void OverlayAccessibility::deleteInterfacesOf(QWidget *widget) {
    if (!isCovered(widget))
        return;
    const auto children = widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        if (!child->isWindow())
            deleteInterfacesOf(child);
    }
    QAccessibleInterface *found = QAccessible::queryAccessibleInterface(widget);
    if (!found || dynamic_cast<CoveredAccessible *>(found))
        return;
    // The cells of a table have no object; they are deleted with their table.
    if (!found->tableInterface())
        deleteInterfacesOfObjects(found);
    deleteInterface(widget);
}

void OverlayAccessibility::deleteInterfacesOfObjects(QAccessibleInterface *parent) {
    const QObjectList objects = objectsIn(parent);
    for (QObject *object : objects)
        m_coveredObjects.append(object);
    for (QObject *object : objects)
        deleteInterface(object);
}

QAccessibleInterface *OverlayAccessibility::makeInterface(const QString &, QObject *object) {
    const auto all = instances();
    for (OverlayAccessibility *each : all) {
        if (QAccessibleInterface *made = each->interfaceFor(object))
            return made;
    }
    return nullptr;
}

QAccessibleInterface *OverlayAccessibility::interfaceFor(QObject *object) {
    if (!object || !m_view)
        return nullptr;
    if (object == m_view)
        return new OverlayDialogAccessible(this);
    if (!m_isActive)
        return nullptr;
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isObject = object == place() || m_coveredObjects.contains(object);
    if (widget ? !isCovered(widget) : !isObject)
        return nullptr;
    m_replaced.append(object);
    if (widget)
        return new CoveredAccessible(widget, this);
    return new CoveredObjectAccessible(object, this);
}

// A widget that is scrolled out of view can't be seen beside the overlay: it is covered, too.
bool OverlayAccessibility::isCovered(const QWidget *widget) const {
    if (!m_superview || !m_view || m_view->isAncestorOf(widget) ||
        !m_superview->isAncestorOf(widget))
        return false;
    QRect visible = widget->rect();
    for (const QWidget *each = widget; each != m_superview; each = each->parentWidget())
        visible = visible.translated(each->pos()) & each->parentWidget()->rect();
    return visible.isEmpty() || m_frame.intersects(visible);
}

bool OverlayAccessibility::isReachable(const QWidget *widget) const {
    if (widget->isWindow() || widget->isHidden() || qobject_cast<const OverlayKeyProxy *>(widget))
        return false;
    return !isCovered(widget) || !reachableChildren(widget).isEmpty();
}

QList<QObject *> OverlayAccessibility::reachableChildren(const QWidget *parent) const {
    QList<QObject *> found;
    const auto children = parent->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        if (child != m_view && isReachable(child))
            found.append(child);
    }
    // Not always a child: it may be in a native window of its own.
    if (parent == m_superview && m_view)
        found.append(m_view);
    return found;
}

} // namespace velmora
