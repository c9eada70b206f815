// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSize>

namespace velmora {

/// Lengths on a splash screen, which follow the size of its window, and those of texts also the
/// size of the user's font. Points.
class SplashLengths {
public:
    explicit SplashLengths(const QSize &window, double textScale = 1);

    /// The same window with texts of another size.
    SplashLengths withTextScale(double scale) const;

    /// A length within limits.
    /// @param points the length in a window of 640x480
    int scaled(double points, double smallest, double largest) const;
    /// The same for the size of letters, and of what has to grow with them.
    int scaledText(double points, double smallest, double largest) const;

    /// Distance of controls from the window's edges: of those over the video, and of the others.
    int inset() const { return scaled(16, 8, 24); }
    int margin() const { return scaled(28, 12, 40); }
    /// Side of the ring over the video, which is also that of the close button.
    int cornerRing() const { return scaled(52, 40, 72); }

private:
    /// 1 in a window of 640x480.
    double m_unit = 1;
    double m_textScale = 1;
};

} // namespace velmora
