// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoEngine.h"

#include <QtCore/QStringList>

#include <memory>

namespace velmora {

/// The library's part that plays videos, in a file of its own that is loaded at the first video
/// and stays.
class VideoModule {
public:
    /// An engine, or null and the reason. Loads the module when that has not happened yet: tens
    /// of milliseconds, and much more when the media framework first looks its plugins over. Any
    /// thread but the main one.
    static std::unique_ptr<VideoEngine> createEngine(VideoEngineListener *listener, QString *error);

    /// Where the module is looked for, in this order: beside the library, in "velmora" beside
    /// it, and in a developer's build where it was built; there the environment's
    /// VELMORA_VIDEO_MODULE names the file instead. Any thread.
    static QStringList candidates();
};

} // namespace velmora
