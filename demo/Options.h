// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo {

/// The command line.
struct Options {
    QString campaign; ///< campaign folder of the ad server
    SplashTimes times;

    /// Reads the arguments, the program's name first. Ends the process for --help and, with a
    /// message on stderr, for wrong arguments.
    static Options fromArguments(const QStringList &arguments);
};

} // namespace demo
