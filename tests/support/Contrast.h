// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>

#include <algorithm>
#include <cmath>

namespace velmora::test {

/// Relative luminance, 0 to 1, as WCAG 2.2 defines it.
inline double luminance(const QColor &color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Contrast ratio of two colours, 1 to 21, as WCAG 2.2 defines it.
inline double contrast(const QColor &one, const QColor &other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace velmora::test
