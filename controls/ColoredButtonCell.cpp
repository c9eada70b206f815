// SPDX-License-Identifier: Apache-2.0
#include "ColoredButtonCell.h"

#include "FocusRing.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>

namespace velmora {

ColoredButtonCell::ColoredButtonCell(QWidget *parent) : QAbstractButton(parent) {}

QSize ColoredButtonCell::sizeHint() const {
    const QFontMetrics metrics(QApplication::font());
    return {metrics.horizontalAdvance(text()) + metrics.height() * 2, metrics.height() * 2};
}

void ColoredButtonCell::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBezelWithFrame(rect(), painter);
    drawTitle(text(), rect(), painter);
    FocusRing::draw(*this, painter, m_circle ? width() / 2.0 : m_cornerRadius);
}

void ColoredButtonCell::drawBezelWithFrame(const QRectF &frame, QPainter &painter) const {
    const QColor color = colorOfState(m_highlightedColor, m_defaultColor, m_disabledColor);
    if (!color.isValid())
        return;
    QPainterPath face;
    face.addRoundedRect(frame, m_cornerRadius, m_cornerRadius);
    if (m_circle) {
        QPainterPath ellipse;
        ellipse.addEllipse(frame);
        face = face.intersected(ellipse);
    }
    painter.fillPath(face, color);
}

QRectF ColoredButtonCell::drawTitle(const QString &title, const QRectF &frame,
                                    QPainter &painter) const {
    const QColor color =
        colorOfState(m_titleHighlightedColor, m_titleDefaultColor, m_titleDisabledColor);
    if (!color.isValid())
        return {};
    QRectF drawn;
    painter.save();
    painter.setFont(QApplication::font());
    painter.setPen(color);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(frame, Qt::AlignCenter | Qt::TextWordWrap, title, &drawn);
    painter.restore();
    return drawn;
}

QColor ColoredButtonCell::colorOfState(const QColor &highlighted, const QColor &normal,
                                       const QColor &disabled) const {
    if (!isEnabled())
        return disabled;
    return isDown() ? highlighted : normal;
}

} // namespace velmora
