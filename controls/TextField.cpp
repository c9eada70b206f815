// SPDX-License-Identifier: Apache-2.0
#include "TextField.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

QAccessibleInterface *accessibleText(const QString &, QObject *object) {
    auto *field = qobject_cast<TextField *>(object);
    return field ? new QAccessibleWidget(field, QAccessible::StaticText) : nullptr;
}

} // namespace

TextField::TextField(QWidget *parent) : QWidget(parent) {
    // Qt keeps one entry, however often it is installed.
    QAccessible::installFactory(accessibleText);
}

void TextField::setText(const QString &text) {
    if (m_text == text)
        return;
    m_text = text;
    setAccessibleName(text);
    update();
}

void TextField::setWordWrap(bool wraps) {
    m_wordWrap = wraps;
    update();
}

void TextField::setTextColor(const QColor &color) {
    m_color = color;
    update();
}

void TextField::setTextSize(double points) {
    m_points = std::max(points, 1.0);
    update();
}

// Not the widget's font, which a style sheet may have changed.
QFont TextField::textFont() const {
    QFont font = QApplication::font();
    font.setPixelSize(int(std::lround(m_points)));
    font.setWeight(QFont::Weight(std::clamp(m_weight, 1, 1000)));
    return font;
}

int TextField::layoutFlags() const {
    return int(Qt::AlignCenter) | (m_wordWrap ? int(Qt::TextWordWrap) : 0);
}

QSize TextField::sizeForWidth(int width) const {
    const QFontMetricsF metrics(textFont(), this);
    const QSizeF size = metrics.boundingRect(QRectF(0, 0, width, 0), layoutFlags(), m_text).size();
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

QSize TextField::sizeHint() const {
    const QFontMetricsF metrics(textFont(), this);
    return metrics.size(0, m_text).toSize() + QSize(1, 1);
}

void TextField::paintEvent(QPaintEvent *) {
    if (!m_color.isValid())
        return;
    QPainter painter(this);
    // The reading direction of the text, which may be in another language than the application.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.setFont(textFont());
    painter.setPen(m_color);
    painter.drawText(QRectF(rect()), layoutFlags() | Qt::TextDontClip, m_text);
}

} // namespace velmora
