// SPDX-License-Identifier: Apache-2.0
#include "VideoModule.h"

#include "VideoFiles.h"

#include <QtCore/QLibrary>

#include <mutex>

namespace velmora {

namespace {

VideoEngineFactory load(QString *error) {
    const QString path =
        VideoFiles::find(QStringLiteral("velmora_video.so"), "VELMORA_VIDEO_MODULE", error);
    if (path.isEmpty())
        return nullptr;
    QLibrary library(path);
    // GStreamer has running threads and registered types, which crash when they are unloaded.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (const auto symbol = library.resolve(VideoEngineFactoryName))
        return reinterpret_cast<VideoEngineFactory>(symbol);
    *error = library.errorString();
    return nullptr;
}

} // namespace

std::unique_ptr<VideoEngine> VideoModule::createEngine(VideoEngineListener *listener,
                                                       QString *error) {
    // Not in ProcessRoot: the module stays loaded until the process ends.
    static std::mutex mutex;
    static VideoEngineFactory factory = nullptr;
    VideoEngineFactory make = nullptr;
    {
        const std::lock_guard lock(mutex);
        // After a failure it is tried again, because the module may have been installed meanwhile.
        if (!factory)
            factory = load(error);
        make = factory;
    }
    return std::unique_ptr<VideoEngine>(make ? make(listener, error) : nullptr);
}

} // namespace velmora
