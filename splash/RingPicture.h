// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QRect>
#include <QtGui/QColor>
#include <QtGui/QPixmap>

#include <algorithm>

namespace velmora {

/// The drawn countdown ring: a disc with a ring on its edge, part of which has elapsed, clockwise
/// from twelve o'clock. When only the elapsed part has changed, only what differs is drawn again.
/// Pictures that look the same share their pixels. Main thread only.
class RingPicture {
public:
    struct Look {
        QSize size; ///< points; the ring is as wide as the smaller side and lies in the middle
        double density = 1;
        QColor disc;
        QColor remaining;
        QColor elapsed;
        double remainingWidth = 0; ///< points
        double elapsedWidth = 0;

        double diameter() const { return std::min(size.width(), size.height()); }
        bool operator==(const Look &) const = default;
    };

    /// What draw() would change, points; the whole picture when more than the elapsed part differs.
    /// @param sweep where the elapsed part ends, degrees
    QRect changeTo(const Look &look, double sweep) const;
    /// @return what has changed
    QRect draw(const Look &look, double sweep);

    /// Whether the picture is as large as one of a look would be.
    bool fits(const Look &look) const;
    const QPixmap &pixmap() const { return m_pixmap; }

private:
    void drawChange(const Look &look, double sweep, const QRect &changed);

    QPixmap m_pixmap;
    Look m_look;
    double m_sweep = 0;
};

} // namespace velmora
