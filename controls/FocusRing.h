// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace velmora {

/// The focus ring of the framework's own controls: a white line inside a dark one, which can be
/// seen over any picture.
class FocusRing {
public:
    /// Draws the ring when the control gets the keys, see KeyFocus.
    static void draw(const QWidget &control, QPainter &painter, double cornerRadius);
    /// The same around a part of the control.
    static void draw(const QWidget &control, const QRectF &edge, QPainter &painter,
                     double cornerRadius);
};

} // namespace velmora
