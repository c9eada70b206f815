// SPDX-License-Identifier: Apache-2.0
#include "StyleShield.h"

#include <QtCore/QEvent>

#include <utility>

namespace velmora {

namespace {
constexpr QSize NoMinimum(0, 0);
constexpr QSize NoMaximum(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
} // namespace

StyleShield::StyleShield(QWidget *root, std::function<void()> place)
    : QObject(root), m_place(std::move(place)) {
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.append(root);
    for (QWidget *widget : std::as_const(widgets)) {
        if (widget->testAttribute(Qt::WA_OpaquePaintEvent))
            m_opaque.append(widget);
        widget->installEventFilter(this);
        restore(widget);
    }
}

bool StyleShield::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Polish:
        // The widget applies its style sheet while it handles the event, so it has to do that
        // first.
        watched->event(event);
        restore(static_cast<QWidget *>(watched));
        return true;
    case QEvent::StyleChange: // sent after the new style sheet was applied
        restore(static_cast<QWidget *>(watched));
        return false;
    default:
        return false;
    }
}

void StyleShield::restore(QWidget *widget) {
    if (m_opaque.contains(widget))
        widget->setAttribute(Qt::WA_OpaquePaintEvent);
    if (widget->minimumSize() == NoMinimum && widget->maximumSize() == NoMaximum)
        return;
    widget->setMinimumSize(NoMinimum);
    widget->setMaximumSize(NoMaximum);
    if (m_place)
        m_place();
}

} // namespace velmora
