// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoEngine.h"

#include <QtCore/QStringList>

#include <memory>

namespace velmora {

/// Loads the video module: the part of the library, in a file of its own, that plays videos. It is
/// loaded for the first video and never unloaded.
class VideoModule {
public:
    /// Makes an engine. Loads the module first if necessary, which takes tens of milliseconds, and
    /// several seconds when the media framework scans its plugins for the first time. Any thread
    /// but the main one.
    /// @param error receives the reason when the result is null
    static std::unique_ptr<VideoEngine> createEngine(VideoEngineListener *listener, QString *error);

    /// The paths where the module may be, the first one preferred: the library's folder, then the
    /// folder "velmora" in it. A developer build adds the build folder, and if the environment
    /// variable VELMORA_VIDEO_MODULE is set, its value is the only path. Any thread.
    static QStringList candidates();
};

} // namespace velmora
