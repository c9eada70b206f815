// SPDX-License-Identifier: Apache-2.0
#include "ConstraintLayout.h"

#include "MainQueue.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStatusBar>

#include <algorithm>

namespace velmora {

namespace {

// Limits a length to more than any screen has, and to much less than an int can hold.
double withinReach(double length) {
    constexpr double Farthest = 100'000;
    return std::clamp(length, -Farthest, Farthest);
}

} // namespace

ConstraintLayout::ConstraintLayout(QWidget *view) : QObject(view), m_view(view) {
    m_view->installEventFilter(this);
    followSuperview();
}

void ConstraintLayout::followSuperview() {
    for (const QPointer<QWidget> &old : {m_superview, m_neighbour}) {
        if (old)
            old->removeEventFilter(this);
    }
    m_superview = m_view->parentWidget();
    m_neighbour = nullptr;
    if (!m_superview)
        return;
    m_superview->installEventFilter(this);
    if (const auto *scrollArea = qobject_cast<QAbstractScrollArea *>(m_superview))
        m_neighbour = scrollArea->viewport();
    else if (qobject_cast<QMainWindow *>(m_superview)) // one without a central widget
        m_neighbour = m_superview->findChild<QStatusBar *>(QString(), Qt::FindDirectChildrenOnly);
    if (m_neighbour)
        m_neighbour->installEventFilter(this);
    m_view->raise();
    apply();
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
            height = std::max(withinReach(constraint->constant()), 0.0);
            break;
        case LayoutConstraint::Relation::Aspect:
            aspect = constraint->multiplier();
            break;
        case LayoutConstraint::Relation::CenterX:
            offset = withinReach(constraint->constant());
            break;
        case LayoutConstraint::Relation::Bottom:
            bottom = withinReach(constraint->constant());
            break;
        case LayoutConstraint::Relation::TrailingInside:
            trailingInside = true;
            break;
        case LayoutConstraint::Relation::Spacing:
            break;
        }
    }
    // The distance from the bottom leaves room for the view's height, or for half of the
    // superview's when the view is higher than that. The view is then scaled down to the room above
    // it.
    bottom = std::min(bottom, superview.height() - std::min(height, superview.height() / 2));
    height = std::min(height, superview.height() - std::max(bottom, 0.0));
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

QRect ConstraintLayout::area() const {
    if (const auto *statusBar = qobject_cast<const QStatusBar *>(m_neighbour)) {
        const int height = statusBar->isVisibleTo(m_superview) ? statusBar->height() : 0;
        return m_superview->rect().adjusted(0, 0, 0, -height);
    }
    const auto *scrollArea = qobject_cast<const QAbstractScrollArea *>(m_superview);
    if (!scrollArea)
        return m_superview->rect();
    const QScrollBar *bar = scrollArea->horizontalScrollBar();
    const QRect columns = scrollArea->viewport()->geometry();
    // The whole height, also where the viewport ends above the view to make room for it.
    const int height = scrollArea->height() - (bar->isVisible() ? bar->height() : 0);
    return {columns.left(), 0, columns.width(), height};
}

void ConstraintLayout::apply() {
    if (!m_superview)
        return;
    const QRect area = this->area();
    const QRect frame = solve(m_constraints, area.size()).toRect().translated(area.topLeft());
    m_view->setGeometry(frame);
    if (m_placed)
        m_placed(frame);
}

bool ConstraintLayout::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_view && event->type() == QEvent::ParentChange)
        followSuperview();
    const bool isResized = event->type() == QEvent::Resize;
    const bool isShownOrHidden =
        event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if ((watched == m_superview && isResized) ||
        (watched == m_neighbour && (isResized || isShownOrHidden)))
        apply();
    if (watched != m_superview)
        return false;
    if (event->type() == QEvent::ChildAdded && !m_raisePosted) {
        // Later, because the new child is not a widget yet: its constructor is still running.
        m_raisePosted = true;
        MainQueue::post(this, [this] {
            m_raisePosted = false;
            m_view->raise();
            // The placed handler raises what belongs to the view.
            apply();
        });
    }
    return false;
}

} // namespace velmora
