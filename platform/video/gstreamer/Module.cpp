// SPDX-License-Identifier: Apache-2.0
#include "GstVideoEngine.h"

using velmora::GlibError;
using velmora::GstVideoEngine;
using velmora::VideoEngine;
using velmora::VideoEngineListener;

namespace {

// Initialises GStreamer. Returns the error, empty on success.
QString initialise() {
    // Otherwise GStreamer replaces the host's crash handlers while it scans plugins.
    gst_segtrap_set_enabled(FALSE);
    GError *error = nullptr;
    if (gst_init_check(nullptr, nullptr, &error))
        return {};
    const GlibError owned(error);
    return QString::fromUtf8(error ? error->message : "GStreamer does not start");
}

} // namespace

extern "C" Q_DECL_EXPORT VideoEngine *velmora_video_engine_1(VideoEngineListener *listener,
                                                             QString *error);

VideoEngine *velmora_video_engine_1(VideoEngineListener *listener, QString *error) {
    static const QString fault = initialise();
    if (fault.isEmpty())
        return new GstVideoEngine(listener);
    *error = fault;
    return nullptr;
}
