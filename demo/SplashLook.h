// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

namespace demo {

/// A whole appearance of the splash screens.
struct SplashLook {
    QColor background = Qt::white;
    QColor text = Qt::black;
    QColor seconds = Qt::black; ///< inside the countdown rings
    QColor disc = Qt::white;
    QColor track = QColor(0x80, 0x80, 0x80);
    QColor elapsed = QColor(0x55, 0x55, 0x55);
    double trackWidth = 2;
    double elapsedWidth = 4;      ///< on top of the track's
    QImage picture = noPicture(); ///< behind everything
    unsigned scaling = 3;
    double topInset = 0;

    /// The framework's own look, but for the ring in the journal's colours.
    static SplashLook day();
    /// Dark, before a landscape at night, with a strip of the journal left free.
    static SplashLook night();

    /// There is no way to take a picture back; this one cannot be seen.
    static QImage noPicture();

    /// Gives it to all splash screens, present and future.
    void apply() const;
};

} // namespace demo
