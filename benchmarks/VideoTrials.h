// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

namespace velmora::bench {

/// Measurements of the framework's player in this process. They need an application object and a
/// display, and run on the main thread.
class VideoTrials {
public:
    /// One player that is started in a visible window and destroyed during playback.
    struct Start {
        /// From the call of load() to the painting of the first frame.
        double firstPaintMs = 0;
        /// How long the destructor of the player blocked the main thread.
        double destroyMs = 0;
    };
    /// @param isPrepared as with a video that follows a start screen: VideoPlayer::warmUp() was
    ///                   called some time before
    static std::vector<Start> starts(int count, bool isPrepared);

    /// From now on videos are decoded in this process.
    static void doWithoutHelper();

    /// Several players at once, while the main thread is blocked for two seconds during playback.
    struct Stalls {
        int started = 0;
        /// The number of players that showed frames again and reached the end once and on time.
        int good = 0;
    };
    static Stalls stalls(int atOnce);
};

} // namespace velmora::bench
