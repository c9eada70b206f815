// SPDX-License-Identifier: Apache-2.0
#include "FocusRing.h"

#include "KeyFocus.h"

namespace velmora {

void FocusRing::draw(const QWidget &control, QPainter &painter, double cornerRadius) {
    draw(control, control.rect(), painter, cornerRadius);
}

void FocusRing::draw(const QWidget &control, const QRectF &edge, QPainter &painter,
                     double cornerRadius) {
    if (!KeyFocus::isOn(control))
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 200), 1));
    painter.drawRoundedRect(edge.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawRoundedRect(edge.adjusted(2, 2, -2, -2), cornerRadius, cornerRadius);
    painter.restore();
}

} // namespace velmora
