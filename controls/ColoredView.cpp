// SPDX-License-Identifier: Apache-2.0
#include "ColoredView.h"

#include <QtGui/QPainter>

namespace velmora {

namespace {
constexpr double CornerRadius = 6;
}

ColoredView::ColoredView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_NoSystemBackground);
}

void ColoredView::setColor(const QColor &color) {
    m_color = color;
    update();
}

void ColoredView::paintEvent(QPaintEvent *) {
    if (!m_color.isValid())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color);
    // The rounded rectangle begins above the view, so that only its bottom corners are seen.
    painter.drawRoundedRect(QRectF(rect()).adjusted(0, -CornerRadius, 0, 0), CornerRadius,
                            CornerRadius);
}

} // namespace velmora
