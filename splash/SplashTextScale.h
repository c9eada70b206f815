// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>

namespace velmora {

/// How large a user wants texts, by the font of the application. Main thread only.
class SplashTextScale {
public:
    /// The factor for the sizes of a splash screen's texts: 1 with the usual font sizes of
    /// desktops, between Smallest and Largest with others.
    static double ofApplicationFont();
    /// That factor and smaller ones down to Smallest, for texts that do not fit, largest first.
    static QList<double> fromApplicationFont();

    static constexpr double Smallest = 0.8;
    static constexpr double Largest = 2;
};

} // namespace velmora
