// SPDX-License-Identifier: Apache-2.0
#include "GstVideoEngine.h"

#include <gst/pbutils/pbutils.h>

#include <cstring>

// What the pipeline tells, on its threads and under the lock of the tap.

namespace velmora {

void GstVideoEngine::heard(GstMessage *message) {
    if (!m_isPrepared)
        m_listener->moved(0, 0);
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ASYNC_DONE:
        if (m_isPictureMissing && !m_hasPictures)
            m_listener->failed(m_missing, false);
        else if (!m_isPrepared.exchange(true))
            m_listener->prepared();
        break;
    case GST_MESSAGE_EOS:
        m_listener->ended();
        break;
    case GST_MESSAGE_ERROR:
        heardError(message);
        break;
    case GST_MESSAGE_ELEMENT:
        if (gst_is_missing_plugin_message(message))
            heardMissing(message);
        break;
    default:
        break;
    }
}

void GstVideoEngine::heardError(GstMessage *message) {
    GError *rawError = nullptr;
    char *rawDetail = nullptr;
    gst_message_parse_error(message, &rawError, &rawDetail);
    const GlibError error(rawError);
    const GlibString detail(rawDetail);
    const QString text = QString::fromUtf8(error->message);
    const bool isSound =
        m_wantsSound && m_soundSink && GST_MESSAGE_SRC(message) == GST_OBJECT(m_soundSink.load());
    m_listener->failed(m_missing.isEmpty() ? text : m_missing + QStringLiteral(": ") + text,
                       isSound);
}

void GstVideoEngine::heardMissing(GstMessage *message) {
    const GlibString detail(gst_missing_plugin_message_get_installer_detail(message));
    const GlibString name(gst_missing_plugin_message_get_description(message));
    const bool isDecoder = detail && std::strstr(detail.get(), "|decoder-");
    const bool isPicture = detail && std::strstr(detail.get(), "|decoder-video/");
    // Those that nearly every video needs; others are told by the name alone.
    const QString text = QStringLiteral("%1 is missing; try the package %2")
                             .arg(QString::fromUtf8(name.get()),
                                  isDecoder ? QStringLiteral("gstreamer1.0-libav")
                                            : QStringLiteral("gstreamer1.0-plugins-good"));
    m_listener->remark(text);
    if (m_missing.isEmpty() || isPicture)
        m_missing = text;
    m_isPictureMissing |= isPicture;
}

} // namespace velmora
