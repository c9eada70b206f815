// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace velmora {

/// The mark of keyboard focus on the framework's own controls: a line inside the edge, light in
/// dark, so that it is seen over any picture.
class FocusRing {
public:
    /// Draws the ring when the control has focus.
    static void draw(const QWidget &control, QPainter &painter, double cornerRadius);
};

} // namespace velmora
