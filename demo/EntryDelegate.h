// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace demo {

/// Draws one entry in the list: a small picture, the title and where and when it was.
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
