// SPDX-License-Identifier: Apache-2.0
#include "demo/EventDelegate.h"

#include "demo/EventLog.h"
#include "demo/Text.h"
#include "demo/Theme.h"

#include <QtGui/QPainter>

namespace demo {

namespace {
constexpr int LineHeight = 17;
constexpr int Padding = 6;
} // namespace

void EventDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const {
    const QRect row = option.rect.adjusted(9, Padding, -9, -Padding);
    const auto line = [&](int number, const QFont &font, const QColor &color, int indent,
                          const QString &text) {
        painter->setFont(font);
        painter->setPen(color);
        const QRect place(row.left(), row.top() + number * LineHeight, row.width() - indent,
                          LineHeight);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                          QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
    };
    painter->save();
    painter->setLayoutDirection(Qt::LeftToRight); // as the texts are
    const QString time = Text::of(Text::Seconds)
                             .arg(index.data(EventLog::TimeRole).toLongLong() / 1000.0, 0, 'f', 1);
    line(0, theme::text(12, QFont::DemiBold), theme::Ink, 52, index.data().toString());
    painter->setFont(theme::text(11));
    painter->setPen(theme::InkSoft);
    painter->drawText(QRect(row.left(), row.top(), row.width(), LineHeight),
                      Qt::AlignRight | Qt::AlignVCenter, time);
    const QString object = index.data(EventLog::ObjectRole).toString();
    if (!object.isEmpty())
        line(1, theme::text(12), theme::AccentDark, 0, object);
    painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                      theme::PaperShade);
    painter->restore();
}

QSize EventDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const {
    const int lines = index.data(EventLog::ObjectRole).toString().isEmpty() ? 1 : 2;
    return {0, 2 * Padding + lines * LineHeight};
}

} // namespace demo
