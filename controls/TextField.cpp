// SPDX-License-Identifier: Apache-2.0
#include "TextField.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

namespace velmora {

TextField::TextField(QWidget *parent) : QLabel(parent) {}

void TextField::setTextColor(const QColor &color) {
    m_color = color;
    update();
}

void TextField::setTextSize(double points) {
    m_points = std::max(points, 1.0);
    update();
}

QFont TextField::textFont() const {
    QFont font = QApplication::font();
    font.setPixelSize(int(std::lround(m_points)));
    font.setWeight(QFont::Weight(std::clamp(m_weight, 1, 1000)));
    return font;
}

int TextField::layoutFlags() const {
    return int(Qt::AlignCenter) | (wordWrap() ? int(Qt::TextWordWrap) : 0);
}

int TextField::heightForWidth(int width) const {
    const QFontMetricsF metrics(textFont(), this);
    return int(
        std::ceil(metrics.boundingRect(QRectF(0, 0, width, 0), layoutFlags(), text()).height()));
}

QSize TextField::sizeHint() const {
    const QFontMetricsF metrics(textFont(), this);
    return metrics.size(0, text()).toSize() + QSize(1, 1);
}

void TextField::paintEvent(QPaintEvent *) {
    if (!m_color.isValid())
        return;
    QPainter painter(this);
    painter.setFont(textFont());
    painter.setPen(m_color);
    painter.drawText(QRectF(rect()), layoutFlags() | Qt::TextDontClip, text());
}

} // namespace velmora
