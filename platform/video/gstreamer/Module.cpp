// SPDX-License-Identifier: Apache-2.0
#include "GstVideoEngine.h"

using velmora::GstVideoEngine;
using velmora::VideoEngine;
using velmora::VideoEngineListener;

extern "C" Q_DECL_EXPORT VideoEngine *velmora_video_engine_3(VideoEngineListener *listener,
                                                             QString *error);

VideoEngine *velmora_video_engine_3(VideoEngineListener *listener, QString *error) {
    return GstVideoEngine::create(listener, error).release();
}
