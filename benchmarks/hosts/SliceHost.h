// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSize>

namespace velmora::bench {

/// A host with a banner and a splash screen that watches its main thread while the video is
/// downloaded and the whole sequence is shown: start screen, video, end screen, close button.
class SliceHost {
public:
    /// Prints "slice" and two times in milliseconds: the longest that the main thread was away from
    /// its event loop, and the most processor time that it took meanwhile. Then ends.
    /// @param loadSeconds for the download of the video, before the splash screen is shown
    /// @param closedAfterMs from the beginning of the video to the click on the close button
    static int run(QSize window, int loadSeconds, int closedAfterMs);
};

} // namespace velmora::bench
