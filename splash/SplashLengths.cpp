// SPDX-License-Identifier: Apache-2.0
#include "SplashLengths.h"

#include <QtCore/QSizeF>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {
// The window for which lengths are given.
constexpr QSizeF NominalSize{640, 480};
constexpr double SmallestUnit = 0.5;
constexpr double LargestUnit = 1.5;
} // namespace

SplashLengths::SplashLengths(const QSize &window, double textScale)
    : m_unit(std::clamp(
          std::min(window.width() / NominalSize.width(), window.height() / NominalSize.height()),
          SmallestUnit, LargestUnit)),
      m_textScale(textScale) {}

SplashLengths SplashLengths::withTextScale(double scale) const {
    SplashLengths other = *this;
    other.m_textScale = scale;
    return other;
}

int SplashLengths::scaled(double points, double smallest, double largest) const {
    return int(std::lround(std::clamp(points * m_unit, smallest, largest)));
}

int SplashLengths::scaledText(double points, double smallest, double largest) const {
    return int(std::lround(std::clamp(points * m_unit, smallest, largest) * m_textScale));
}

} // namespace velmora
