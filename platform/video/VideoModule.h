// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoEngine.h"

#include <memory>

namespace velmora {

/// Loads the video module: the engine in a file of its own, so that a host which plays no videos in
/// its own process loads no media framework. It is loaded for the first engine and never unloaded.
class VideoModule {
public:
    /// Makes an engine. Loads the module first if necessary, which takes tens of milliseconds, and
    /// several seconds when the media framework scans its plugins for the first time. Any thread
    /// but the main one.
    /// @param error receives the reason when the result is null
    static std::unique_ptr<VideoEngine> createEngine(VideoEngineListener *listener, QString *error);
};

} // namespace velmora
