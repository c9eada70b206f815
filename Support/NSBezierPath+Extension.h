// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace velmora {

/// A vertical two-colour gradient in the shape of a path, to be drawn wherever it has moved to.
class PathGradient {
public:
    PathGradient(QPainterPath shape, QSizeF size, QColor top, QColor bottom);

    /// Draws the gradient with its upper left corner at a point. A colour that is not set draws
    /// nothing.
    void draw(QPainter &painter, QPointF origin) const;

private:
    QPainterPath m_shape;
    QSizeF m_size;
    QColor m_top;
    QColor m_bottom;
};

/// What the framework adds to vector paths. Main thread only.
class NSBezierPathExtension {
public:
    /// A new path with the same elements. An element that may not stand where it does, as a
    /// damaged stream can leave one, is reported to the log and left out.
    static QPainterPath CGPathFromPath(const QPainterPath &path);

    /// A gradient as large as a rectangle, from one colour at the top to another at the bottom,
    /// seen only where the path is.
    static PathGradient startAnimationPathGradientFill(const QPainterPath &path, const QRectF &rect,
                                                       const QColor &fromColor,
                                                       const QColor &toColor);
};

} // namespace velmora
