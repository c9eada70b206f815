// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::bench {

/// Programs that show splash screens:
/// - "start screens": start screens that count down in four windows
/// - "splash video": a splash screen that plays the clip in its own size, with all controls over it
class SplashSubject {
public:
    static bool has(const QString &name);

    /// Runs the program of that name in this process until it is killed. It prints "PLAYING" when
    /// the splash screen is shown.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
