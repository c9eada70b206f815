// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoEngine.h"

#include <memory>

namespace velmora {

/// Makes the engines of the videos. A video is decoded in a helper process, so that a decoder which
/// crashes, or is taken over by a video, harms neither the host nor its user's files. Where no
/// helper can be started, the video module decodes in this process. Any thread but the main one.
class VideoEngines {
public:
    /// Makes an engine. That takes some tens of milliseconds, and several seconds when the media
    /// framework scans its plugins for the first time.
    /// @param error receives the reason when the result is null
    static std::unique_ptr<VideoEngine> create(VideoEngineListener *listener, QString *error);

    /// Starts the helper of the next video, or loads the plugins that it needs in this process.
    /// @param listener is not called
    static void warmUp(VideoEngineListener *listener);
};

} // namespace velmora
