// SPDX-License-Identifier: Apache-2.0
#include "SplashTextScale.h"

#include <QtGui/QFontInfo>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace velmora {

namespace {
// Pixels: Qt's own default is 9 points, macOS has 13, GNOME 11 points.
constexpr double SmallestUsual = 12;
constexpr double LargestUsual = 15;
constexpr double Step = 0.05;
} // namespace

double SplashTextScale::ofApplicationFont() {
    const double pixels = QFontInfo(QApplication::font()).pixelSize();
    return std::clamp(pixels / std::clamp(pixels, SmallestUsual, LargestUsual), Smallest, Largest);
}

QList<double> SplashTextScale::fromApplicationFont() {
    QList<double> scales;
    for (double scale = ofApplicationFont(); scale > Smallest; scale -= Step)
        scales.append(scale);
    scales.append(Smallest);
    return scales;
}

} // namespace velmora
