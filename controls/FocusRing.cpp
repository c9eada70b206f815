// SPDX-License-Identifier: Apache-2.0
#include "FocusRing.h"

namespace velmora {

void FocusRing::draw(const QWidget &control, QPainter &painter, double cornerRadius) {
    if (!control.hasFocus())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const QRectF edge(control.rect());
    painter.setPen(QPen(QColor(0, 0, 0, 200), 1));
    painter.drawRoundedRect(edge.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.setPen(QPen(Qt::white, 2));
    painter.drawRoundedRect(edge.adjusted(2, 2, -2, -2), cornerRadius, cornerRadius);
    painter.restore();
}

} // namespace velmora
