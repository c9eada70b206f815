// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora::bench {

/// The hosts whose main thread is measured. Each shows one thing, prints the longest slice of its
/// main thread, when the picture was first on screen and the process's peak memory, and ends.
/// - "banner": a window with a banner, whose size changes once
/// - "splash": two windows with a splash screen, one of which shows the end screen after six
/// seconds
/// - "window": the window of "banner" without a banner
class SliceSubject {
public:
    /// Runs the host of that name in this process.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
