// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace demo {

/// Draws an event: its name and time, and its object below them.
class EventDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace demo
