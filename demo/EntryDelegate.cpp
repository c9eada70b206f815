// SPDX-License-Identifier: Apache-2.0
#include "demo/EntryDelegate.h"

#include "demo/JournalEntry.h"
#include "demo/Theme.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace demo {

void EntryDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const {
    const JournalEntry &entry = JournalEntry::all().at(index.row());
    const bool selected = option.state & QStyle::State_Selected;
    const bool hovered = option.state & QStyle::State_MouseOver;
    const QRectF row = QRectF(option.rect).adjusted(10, 2, -10, -2);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setLayoutDirection(Qt::LeftToRight); // as the texts are
    painter->setPen(Qt::NoPen);
    if (selected || hovered) {
        QColor background = theme::DeepRaised;
        background.setAlpha(selected ? 255 : 110);
        painter->setBrush(background);
        painter->drawRoundedRect(row, 8, 8);
    }

    const QRectF picture(row.left() + 8, row.center().y() - 22, 44, 44);
    QPainterPath rounded;
    rounded.addRoundedRect(picture, 6, 6);
    painter->save();
    painter->setClipPath(rounded);
    // The drawing is wider than the clip path, so that its middle is shown undistorted.
    entry.scenery.paint(*painter, picture.adjusted(-20, 0, 20, 0));
    painter->restore();

    const double left = picture.right() + 11;
    const double width = row.right() - 10 - left;
    const QFont titleFont = theme::text(13, QFont::DemiBold);
    painter->setFont(titleFont);
    painter->setPen(theme::OnDeep);
    painter->drawText(QRectF(left, row.top() + 12, width, 19), Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetricsF(titleFont).elidedText(entry.title, Qt::ElideRight, width));
    const QFont placeFont = theme::text(12);
    painter->setFont(placeFont);
    painter->setPen(selected ? theme::OnDeep.darker(112) : theme::OnDeepSoft);
    const QString place =
        entry.date + QStringLiteral("  ·  ") + entry.place.section(QLatin1Char(','), 0, 0);
    painter->drawText(QRectF(left, row.top() + 33, width, 18), Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetricsF(placeFont).elidedText(place, Qt::ElideRight, width));
    painter->restore();
}

} // namespace demo
