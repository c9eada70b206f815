// SPDX-License-Identifier: Apache-2.0
#include "VideoModule.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLibrary>

#include <mutex>

#include <dlfcn.h>

namespace velmora {

namespace {

constexpr QLatin1String FileName("velmora_video.so");

// The folder of the shared library or program that contains this function.
QString ownFolder() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<const void *>(&ownFolder), &info) || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

VideoEngineFactory load(QString *error) {
    for (const QString &path : VideoModule::candidates()) {
        if (!QFileInfo::exists(path))
            continue;
        QLibrary library(path);
        // GStreamer has running threads and registered types, which crash when they are unloaded.
        library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
        if (const auto symbol = library.resolve(VideoEngineFactoryName))
            return reinterpret_cast<VideoEngineFactory>(symbol);
        *error = library.errorString();
        return nullptr;
    }
    *error = QStringLiteral("%1 is not installed; looked for %2")
                 .arg(FileName, VideoModule::candidates().join(QStringLiteral(", ")));
    return nullptr;
}

} // namespace

QStringList VideoModule::candidates() {
#ifdef VELMORA_DEVELOPER_BUILD
    if (qEnvironmentVariableIsSet("VELMORA_VIDEO_MODULE"))
        return {qEnvironmentVariable("VELMORA_VIDEO_MODULE")};
#endif
    QStringList paths;
    if (const QString folder = ownFolder(); !folder.isEmpty())
        paths << folder + QLatin1Char('/') + FileName
              << folder + QStringLiteral("/velmora/") + FileName;
#ifdef VELMORA_DEVELOPER_BUILD
    paths << QStringLiteral(VELMORA_VIDEO_MODULE_BUILT);
#endif
    return paths;
}

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
