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
    QString noHelper;
    if (auto helper = SpareHelper::takeOrStart(&noHelper))
        return std::make_unique<HelperEngine>(listener, std::move(helper));
    auto engine = VideoModule::createEngine(listener, error);
    if (engine)
        listener->remark(
            QStringLiteral("it is decoded in this process, as there is no video helper: %1")
                .arg(noHelper));
    else
        *error = QStringLiteral("no video helper: %1; no video module: %2").arg(noHelper, *error);
    return engine;
#else
    return VideoModule::createEngine(listener, error);
#endif
}

void VideoEngines::warmUp(VideoEngineListener *listener) {
    // The first video fails for the same reason and logs it.
    QString ignored;
#ifdef VELMORA_VIDEO_HELPER
    if (SpareHelper::prepare(&ignored))
        return;
#endif
    if (const auto engine = VideoModule::createEngine(listener, &ignored))
        engine->warmUp();
}

} // namespace velmora
