// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

namespace demo {

/// All options of the splash screens' look.
struct SplashLook {
    QColor background = Qt::white;
    QColor text = Qt::black;
    QColor seconds = Qt::black; ///< inside the countdown rings
    QColor disc = Qt::white;
    QColor track = QColor(0x80, 0x80, 0x80);
    QColor elapsed = QColor(0x55, 0x55, 0x55);
    double trackWidth = 2;
    double elapsedWidth = 4;      ///< added to the track's
    QImage picture = noPicture(); ///< behind everything
    unsigned scaling = 3;
    double topInset = 0;

    /// The framework's defaults, but for the scaling.
    static SplashLook day() { return {}; }
    /// Dark, with a landscape at night behind it and a strip left free at the top.
    static SplashLook night();

    /// A transparent picture. The framework has no operation that removes a picture.
    static QImage noPicture();

    /// Sets the look of all splash screens, present and future.
    void apply() const;
};

} // namespace demo
