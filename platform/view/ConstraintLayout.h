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

/// Keeps one view where its constraints place it, and above its siblings. It lays the view out
/// again when a constraint changes, when the superview is resized or gets a new child, and when the
/// view gets another superview. Main thread only.
///
/// In a QAbstractScrollArea the view lies beside the scroll bars, in a QMainWindow above the status
/// bar. A view that would not fit is
/// scaled down with its aspect ratio kept. The distance from the bottom is reduced when it would
/// leave the view less than its height and less than half of the superview's.
class ConstraintLayout : public QObject {
    Q_OBJECT

public:
    /// @param view the view whose geometry is set from now on; owns this object
    explicit ConstraintLayout(QWidget *view);

    void add(const LayoutConstraintPtr &constraint);
    void remove(const LayoutConstraintPtr &constraint);

    /// Lays the view out now.
    void apply();

    /// Called with the view's rectangle after every layout.
    void setPlacedHandler(std::function<void(const QRect &)> placed) {
        m_placed = std::move(placed);
    }

    /// The rectangle that constraints give a view in a superview of the given size.
    static QRectF solve(const std::vector<LayoutConstraintPtr> &constraints, QSizeF superview);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followSuperview();
    QRect area() const;

    QWidget *m_view;
    QPointer<QWidget> m_superview;
    // What the view keeps clear of: a scroll area's scroll bars, around this viewport, or the
    // status bar of a main window without a central widget.
    QPointer<QWidget> m_neighbour;
    std::vector<LayoutConstraintPtr> m_constraints;
    std::function<void(const QRect &)> m_placed;
    bool m_raisePosted = false;
};

} // namespace velmora
