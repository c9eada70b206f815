// SPDX-License-Identifier: Apache-2.0
#include "NSBezierPath+Extension.h"

#include <Velmora/Support.h>

#include <QtGui/QLinearGradient>

namespace velmora {

PathGradient::PathGradient(const QPainterPath &shape, QSizeF size, QColor top, QColor bottom)
    : m_shape(shape), m_size(size), m_top(top), m_bottom(bottom) {}

void PathGradient::draw(QPainter &painter, QPointF origin) const {
    if (!m_top.isValid() || !m_bottom.isValid())
        return;
    QLinearGradient gradient(0, 0, 0, m_size.height());
    gradient.setColorAt(0, m_top);
    gradient.setColorAt(1, m_bottom);
    painter.save();
    painter.translate(origin);
    painter.setClipRect(QRectF({0, 0}, m_size), Qt::IntersectClip);
    painter.fillPath(m_shape, gradient);
    painter.restore();
}

QPainterPath NSBezierPathExtension::CGPathFromPath(const QPainterPath &path) {
    QPainterPath copy;
    copy.setFillRule(path.fillRule());
    const auto isCurveData = [&](int index) {
        return index < path.elementCount() &&
               path.elementAt(index).type == QPainterPath::CurveToDataElement;
    };
    for (int index = 0; index < path.elementCount(); ++index) {
        const QPainterPath::Element element = path.elementAt(index);
        if (element.type == QPainterPath::MoveToElement) {
            copy.moveTo(element);
        } else if (element.type == QPainterPath::LineToElement) {
            // QPainterPath closes a subpath with a line to its start.
            copy.lineTo(element);
        } else if (element.type == QPainterPath::CurveToElement && isCurveData(index + 1) &&
                   isCurveData(index + 2)) {
            copy.cubicTo(element, path.elementAt(index + 1), path.elementAt(index + 2));
            index += 2;
        } else {
            LOG(QStringLiteral("Invalid NSBezierPathElement "
                               "(Support/NSBezierPath+Extension, line 37)"));
        }
    }
    return copy;
}

PathGradient NSBezierPathExtension::startAnimationPathGradientFill(const QPainterPath &path,
                                                                   const QRectF &rect,
                                                                   const QColor &fromColor,
                                                                   const QColor &toColor) {
    return {CGPathFromPath(path), rect.size(), fromColor, toColor};
}

} // namespace velmora
