// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace demo {

/// Draws an entry of the list: a small illustration, the title, the date and the place.
class EntryDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int Height = 68;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override {
        return {0, Height};
    }
};

} // namespace demo
