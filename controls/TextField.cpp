// SPDX-License-Identifier: Apache-2.0
#include "TextField.h"

#include "TextSizes.h"

#include <QtGui/QPaintEvent>
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
    changed();
}

void TextField::setWordWrap(bool wraps) {
    m_wordWrap = wraps;
    changed();
}

void TextField::setTextColor(const QColor &color) {
    m_color = color;
    update();
}

void TextField::setTextSize(double points) {
    m_points = std::max(points, 1.0);
    changed();
}

void TextField::setTextWeight(int weight) {
    m_weight = weight;
    changed();
}

QFont TextField::textFont() const {
    QFont font = QApplication::font();
    font.setPixelSize(int(std::lround(m_points)));
    font.setWeight(QFont::Weight(std::clamp(m_weight, 1, 1000)));
    // Else a painter would take italics, for example, from the widget's font.
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}

int TextField::layoutFlags() const {
    return int(Qt::AlignCenter) | (m_wordWrap ? int(Qt::TextWordWrap) : 0);
}

QSize TextField::sizeForWidth(int width) const {
    const QSizeF size = TextSizes::inWidth(width, layoutFlags(), textFont(), m_text, *this);
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

QSize TextField::sizeHint() const {
    return sizeOf(m_text);
}

QSize TextField::sizeOf(const QString &text) const {
    return TextSizes::onOneLine(textFont(), text, *this).toSize() + QSize(1, 1);
}

void TextField::changed() {
    m_drawnFrame = {};
    update();
}

void TextField::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    m_drawnFrame = {};
}

void TextField::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    m_drawnFrame = {};
}

void TextField::paintEvent(QPaintEvent *event) {
    // The ring around the digits is drawn up to sixty times a second, and text takes long.
    const bool isBeside = m_drawnFrame.isValid() && !event->region().intersects(m_drawnFrame);
    if (!m_color.isValid() || isBeside)
        return;
    QPainter painter(this);
    // Letters may reach beyond their frame.
    m_drawnFrame =
        drawText(painter).toAlignedRect().marginsAdded(QMargins(1, 1, 1, 1) * (m_points / 4));
}

QRectF TextField::drawText(QPainter &painter) const {
    // The reading direction of the text, which may be in another language than the application.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.setFont(textFont());
    painter.setPen(m_color);
    QRectF frame;
    painter.drawText(QRectF(rect()), layoutFlags() | Qt::TextDontClip, m_text, &frame);
    return frame;
}

} // namespace velmora
