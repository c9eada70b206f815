// SPDX-License-Identifier: Apache-2.0
#include "CoveredAccessible.h"

namespace velmora {

CoveredAccessible::CoveredAccessible(QWidget *widget, OverlayAccessibility *cover)
    : QAccessibleWidget(widget, widget->isWindow() ? QAccessible::Window : QAccessible::Client),
      m_cover(cover) {}

QList<QObject *> CoveredAccessible::children() const {
    return m_cover && widget() ? m_cover->reachableChildren(widget()) : QList<QObject *>();
}

int CoveredAccessible::childCount() const {
    return int(children().size());
}

QAccessibleInterface *CoveredAccessible::child(int index) const {
    return QAccessible::queryAccessibleInterface(children().value(index));
}

QAccessibleInterface *CoveredAccessible::childAt(int x, int y) const {
    const QList<QObject *> all = children();
    for (auto each = all.rbegin(); each != all.rend(); ++each) {
        QAccessibleInterface *found = QAccessible::queryAccessibleInterface(*each);
        if (found && found->rect().contains(x, y))
            return found;
    }
    return nullptr;
}

int CoveredAccessible::indexOfChild(const QAccessibleInterface *child) const {
    return child ? int(children().indexOf(child->object())) : -1;
}

QString CoveredAccessible::text(QAccessible::Text kind) const {
    return role() == QAccessible::Window ? QAccessibleWidget::text(kind) : QString();
}

QAccessible::State CoveredAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = false;
    state.focused = false;
    state.invisible = state.invisible || children().isEmpty();
    return state;
}

} // namespace velmora
