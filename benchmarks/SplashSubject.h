// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::bench {

/// Splash screens as a host shows them. "start screens": counting down in four windows.
/// "splash video": one that plays the clip pixel by pixel, with all that lies over it.
class SplashSubject {
public:
    static bool has(const QString &name);

    /// Runs the subject in this process until it is ended. Prints a line with "PLAYING" once it
    /// is shown.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
