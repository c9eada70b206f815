// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QRectF>

namespace velmora {

/// Places geometry that is measured from a view's bottom edge, y growing upwards, in the view's
/// own coordinates, where y grows downwards from its top edge.
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
