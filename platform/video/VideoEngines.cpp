// SPDX-License-Identifier: Apache-2.0
#include "VideoEngines.h"

#include "VideoModule.h"

#ifdef VELMORA_VIDEO_HELPER
#include "HelperEngine.h"
#include "SpareHelper.h"
#endif

namespace velmora {

std::unique_ptr<VideoEngine> VideoEngines::create(VideoEngineListener *listener, QString *error) {
#ifdef VELMORA_VIDEO_HELPER
    HelperStart start = SpareHelper::takeOrStart();
    if (start.process)
        return std::make_unique<HelperEngine>(listener, std::move(start.process));
    if (!start.isImpossible) {
        // Not decoded in a host that is short of memory or files either, where nothing protects it.
        *error = QStringLiteral("no video helper: %1").arg(start.error);
        return nullptr;
    }
    auto engine = VideoModule::createEngine(listener, error);
    if (engine)
        listener->remark(
            QStringLiteral("it is decoded in this process, as there is no video helper: %1")
                .arg(start.error));
    else
        *error =
            QStringLiteral("no video helper: %1; no video module: %2").arg(start.error, *error);
    return engine;
#else
    return VideoModule::createEngine(listener, error);
#endif
}

void VideoEngines::warmUp(VideoEngineListener *listener) {
#ifdef VELMORA_VIDEO_HELPER
    if (SpareHelper::prepare())
        return;
#endif
    QString ignored; // the first video fails for the same reason and logs it
    if (const auto engine = VideoModule::createEngine(listener, &ignored))
        engine->warmUp();
}

} // namespace velmora
