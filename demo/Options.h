// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "demo/SplashTimes.h"
#include "demo/Surroundings.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace demo {

/// The command line.
struct Options {
    QString campaign; ///< campaign folder of the ad server
    SplashTimes times;
    Surroundings surroundings;

    /// Reads the arguments, the program's name first. Ends the process for --help and, with a
    /// message on stderr, for wrong arguments.
    static Options fromArguments(const QStringList &arguments);
    /// The arguments that give these options, without the program's name.
    QStringList arguments() const;
};

} // namespace demo
