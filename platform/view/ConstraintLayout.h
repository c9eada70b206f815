// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LayoutConstraint.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>
#include <vector>

namespace velmora {

/// Keeps one view where its constraints say, above its siblings, for as long as the view lives:
/// when a constraint changes, when the superview is resized or gets new children, and when the
/// view is put into another superview. A view that would be wider than its superview, or higher
/// than what is left above its distance from the bottom, is scaled down with its aspect kept; the
/// distance in turn leaves the view half of a flat superview. Main thread only.
class ConstraintLayout : public QObject {
    Q_OBJECT

public:
    /// Takes over the geometry of a view that has a superview. Owned by the view.
    explicit ConstraintLayout(QWidget *view);

    void add(const LayoutConstraintPtr &constraint);
    void remove(const LayoutConstraintPtr &constraint);

    /// Lays the view out now.
    void apply();

    /// Called with the view's rectangle after every layout.
    void setPlacedHandler(std::function<void(const QRect &)> placed) {
        m_placed = std::move(placed);
    }

    /// The rectangle that constraints give a view inside a superview of a size.
    static QRectF solve(const std::vector<LayoutConstraintPtr> &constraints, QSizeF superview);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followSuperview();

    QWidget *m_view;
    QPointer<QWidget> m_superview;
    std::vector<LayoutConstraintPtr> m_constraints;
    std::function<void(const QRect &)> m_placed;
    bool m_raisePosted = false;
};

} // namespace velmora
