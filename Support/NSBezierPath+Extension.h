// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace velmora {

/// A vertical gradient of two colours that fills a path.
class PathGradient {
public:
    PathGradient(const QPainterPath &shape, QSizeF size, QColor top, QColor bottom);

    /// Draws the gradient with its upper left corner at a point. Draws nothing when a colour is
    /// invalid.
    void draw(QPainter &painter, QPointF origin) const;

private:
    QPainterPath m_shape;
    QSizeF m_size;
    QColor m_top;
    QColor m_bottom;
};

/// Operations on QPainterPath. Main thread only.
class NSBezierPathExtension {
public:
    /// Copies a path element by element. An element that is invalid in its place, as in a path read
    /// from a damaged stream, is logged and left out.
    static QPainterPath CGPathFromPath(const QPainterPath &path);

    /// A gradient of a rectangle's size, from one colour at its top to another at its bottom,
    /// clipped to a copy of the path.
    static PathGradient startAnimationPathGradientFill(const QPainterPath &path, const QRectF &rect,
                                                       const QColor &fromColor,
                                                       const QColor &toColor);
};

} // namespace velmora
