// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

namespace velmora::bench {

/// What is measured of the framework's player in this process, which has an application object
/// and a display. Main thread only.
class VideoTrials {
public:
    /// One clip, loaded and played in a window that shows already, and destroyed while it plays.
    struct Start {
        /// From before load() until its first picture was painted.
        double firstPaintMs = 0;
        /// For how long destroying the player held the main thread.
        double destroyMs = 0;
    };
    static std::vector<Start> starts(int count);

    /// Several clips at once, with a main thread that stops for two seconds in their middle.
    struct Stalls {
        int started = 0;
        /// Those that showed pictures again and reached their end once, in their time.
        int good = 0;
    };
    static Stalls stalls(int atOnce);
};

} // namespace velmora::bench
