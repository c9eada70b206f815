// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QRectF>

namespace velmora {

/// Converts coordinates that start at a view's bottom edge, with y growing upwards, into Qt's,
/// which start at its top edge, with y growing downwards.
class FlippedCoordinates {
public:
    explicit FlippedCoordinates(double viewHeight) : m_height(viewHeight) {}

    QPointF point(double x, double y) const { return {x, m_height - y}; }
    QRectF rect(double x, double y, double width, double height) const {
        return {x, m_height - y - height, width, height};
    }

private:
    double m_height;
};

} // namespace velmora
