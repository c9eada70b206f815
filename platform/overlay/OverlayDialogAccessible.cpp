// SPDX-License-Identifier: Apache-2.0
#include "OverlayDialogAccessible.h"

#include "Animator.h"

#include <algorithm>

namespace velmora {

namespace {

QWidgetList childWidgets(const QWidget *parent) {
    return parent->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}

bool isWorthTelling(QWidget *widget) {
    if (widget->isWindow() || widget->isHidden() || Animator::isHidden(widget))
        return false;
    const QAccessibleInterface *found = QAccessible::queryAccessibleInterface(widget);
    if (!found || found->state().invisible)
        return false;
    if (!found->text(QAccessible::Name).isEmpty())
        return true;
    const QWidgetList children = childWidgets(widget);
    return std::any_of(children.begin(), children.end(), isWorthTelling);
}

} // namespace

OverlayDialogAccessible::OverlayDialogAccessible(OverlayAccessibility *cover)
    : QAccessibleWidget(cover->view(), QAccessible::Dialog), m_cover(cover) {}

QAccessibleInterface *OverlayDialogAccessible::parent() const {
    QObject *place = m_cover ? m_cover->place() : nullptr;
    return place ? QAccessible::queryAccessibleInterface(place) : QAccessibleWidget::parent();
}

QList<QObject *> OverlayDialogAccessible::children() const {
    QList<QObject *> found;
    if (!widget())
        return found;
    for (QWidget *child : childWidgets(widget())) {
        if (isWorthTelling(child))
            found.append(child);
    }
    return found;
}

int OverlayDialogAccessible::childCount() const {
    return int(children().size());
}

QAccessibleInterface *OverlayDialogAccessible::child(int index) const {
    return QAccessible::queryAccessibleInterface(children().value(index));
}

int OverlayDialogAccessible::indexOfChild(const QAccessibleInterface *child) const {
    return child ? int(children().indexOf(child->object())) : -1;
}

QAccessible::State OverlayDialogAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = true;
    return state;
}

} // namespace velmora
