// SPDX-License-Identifier: Apache-2.0
#include "ColoredView.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <cmath>

namespace velmora {

namespace {
constexpr int CornerRadius = 6;
}

ColoredView::ColoredView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_NoSystemBackground);
}

void ColoredView::setColor(const QColor &color) {
    m_color = color;
    update();
}

void ColoredView::paintEvent(QPaintEvent *event) {
    if (!m_color.isValid())
        return;
    QPainter painter(this);
    // Mostly a control in the middle is drawn, for which the outline of the whole view is not
    // needed.
    if (event->rect().bottom() < height() - CornerRadius) {
        painter.fillRect(event->rect(), m_color);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color);
    // The rounded rectangle begins above the view, so that only its bottom corners are seen. It
    // ends with a pixel of the screen: what is behind would shine through half of one.
    const double density = devicePixelRatioF();
    const QSizeF area(std::ceil(width() * density) / density,
                      std::ceil(height() * density) / density);
    painter.drawRoundedRect(QRectF({}, area).adjusted(0, -CornerRadius, 0, 0), CornerRadius,
                            CornerRadius);
}

} // namespace velmora
