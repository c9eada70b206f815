#include "platform/ConstraintLayout.h"

#include "platform/MainQueue.h"

#include <QtCore/QEvent>

#include <algorithm>
#include <cmath>

namespace velmora {

ConstraintLayout::ConstraintLayout(QWidget *view)
    : QObject(view), m_view(view), m_superview(view->parentWidget()) {
    m_superview->installEventFilter(this);
    m_view->raise();
}

void ConstraintLayout::add(const LayoutConstraintPtr &constraint) {
    constraint->setChangeHandler([self = QPointer<ConstraintLayout>(this)] {
        if (self)
            self->apply();
    });
    m_constraints.push_back(constraint);
    apply();
}

void ConstraintLayout::remove(const LayoutConstraintPtr &constraint) {
    if (std::erase(m_constraints, constraint) > 0)
        constraint->setChangeHandler(nullptr);
}

QRectF ConstraintLayout::solve(const std::vector<LayoutConstraintPtr> &constraints,
                               QSizeF superview) {
    double height = 0;
    double aspect = 0;
    double offset = 0;
    double bottom = 0;
    bool trailingInside = false;
    for (const LayoutConstraintPtr &constraint : constraints) {
        switch (constraint->relation()) {
        case LayoutConstraint::Relation::Height:
            height = std::max(constraint->constant(), 0.0);
            break;
        case LayoutConstraint::Relation::Aspect:
            aspect = constraint->multiplier();
            break;
        case LayoutConstraint::Relation::CenterX:
            offset = constraint->constant();
            break;
        case LayoutConstraint::Relation::Bottom:
            bottom = constraint->constant();
            break;
        case LayoutConstraint::Relation::TrailingInside:
            trailingInside = true;
            break;
        case LayoutConstraint::Relation::Spacing:
            break;
        }
    }
    double width = height * aspect;
    if (width > superview.width()) {
        width = superview.width();
        height = width / aspect;
    }
    double x = (superview.width() - width) / 2 + offset;
    if (trailingInside)
        x = std::min(x, superview.width() - width);
    return {x, superview.height() - bottom - height, width, height};
}

void ConstraintLayout::apply() {
    if (!m_superview)
        return;
    const QRect frame = solve(m_constraints, m_superview->size()).toRect();
    m_view->setGeometry(frame);
    if (m_placed)
        m_placed(frame);
}

bool ConstraintLayout::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_superview)
        return false;
    if (event->type() == QEvent::Resize)
        apply();
    if (event->type() == QEvent::ChildAdded && !m_raisePosted) {
        // The new child is not a widget yet while this event is delivered.
        m_raisePosted = true;
        MainQueue::post([self = QPointer<ConstraintLayout>(this)] {
            if (!self)
                return;
            self->m_raisePosted = false;
            self->m_view->raise();
        });
    }
    return false;
}

} // namespace velmora
