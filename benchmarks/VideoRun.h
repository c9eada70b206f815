// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/VideoSubject.h"

#include <optional>
#include <vector>

namespace velmora::bench {

/// What a subject costs, and what it has printed about itself.
struct VideoRun {
    /// Of all its processes, in percent of one core.
    double cpuPercent = 0;
    /// Of the framework's player only, and only if the clip was played to its end.
    int painted = 0;
    double longestSliceMs = 0;

    /// Runs a subject. Tries again when it does not play; Qt's player sometimes does not start.
    static VideoRun of(const VideoSubject &subject, bool toItsEnd);

    /// The times until the first frame, from Kind::FirstFrame.
    static std::vector<double> firstFrames(const VideoSubject &subject);

private:
    static std::optional<VideoRun> attempt(const VideoSubject &subject, bool toItsEnd);
};

} // namespace velmora::bench
