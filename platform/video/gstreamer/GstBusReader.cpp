// SPDX-License-Identifier: Apache-2.0
#include "GstBusReader.h"

#include <gst/pbutils/pbutils.h>

#include <cstring>
#include <mutex>

namespace velmora {

// The bus shares it with the reader, because threads of the pipeline may still post messages when
// the reader is destroyed.
struct GstBusReader::Tap {
    std::mutex mutex; // locked while a message is read; guards the rest
    GstBusReader *reader = nullptr;
    std::shared_ptr<Tap> bus; // the bus's share, as GStreamer holds a plain pointer

    static Tap *from(gpointer data) { return static_cast<Tap *>(data); }
};

GstBusReader::GstBusReader(VideoEngineListener *listener)
    : m_listener(listener), m_tap(std::make_shared<Tap>()) {}

GstBusReader::~GstBusReader() {
    stop();
}

void GstBusReader::start(GstElement *pipeline) {
    const GstPointer<GstBus> bus(gst_element_get_bus(pipeline));
    {
        const std::lock_guard lock(m_tap->mutex);
        m_tap->reader = this;
        m_tap->bus = m_tap;
    }
    const auto release = [](gpointer data) {
        std::shared_ptr<Tap> share; // destroyed after the lock
        const std::lock_guard lock(Tap::from(data)->mutex);
        share.swap(Tap::from(data)->bus);
    };
    gst_bus_set_sync_handler(bus.get(), receive, m_tap.get(), release);
}

void GstBusReader::stop() {
    const std::lock_guard lock(m_tap->mutex);
    m_tap->reader = nullptr;
}

GstBusSyncReply GstBusReader::receive(GstBus *, GstMessage *message, gpointer data) {
    const std::lock_guard lock(Tap::from(data)->mutex);
    if (GstBusReader *reader = Tap::from(data)->reader)
        reader->read(message);
    gst_message_unref(message);
    return GST_BUS_DROP;
}

void GstBusReader::read(GstMessage *message) {
    // While the source is opened, every message is progress.
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
        readError(message);
        break;
    case GST_MESSAGE_ELEMENT:
        if (gst_is_missing_plugin_message(message))
            readMissingPlugin(message);
        break;
    default:
        break;
    }
}

void GstBusReader::readError(GstMessage *message) {
    GError *rawError = nullptr;
    char *rawDetail = nullptr;
    gst_message_parse_error(message, &rawError, &rawDetail);
    const GlibError error(rawError);
    const GlibString detail(rawDetail);
    const QString text = QString::fromUtf8(error->message);
    const GstElement *soundSink = m_soundSink;
    const bool isSound = soundSink && GST_MESSAGE_SRC(message) == GST_OBJECT_CAST(soundSink);
    m_listener->failed(m_missing.isEmpty() ? text : m_missing + QStringLiteral(": ") + text,
                       isSound);
}

void GstBusReader::readMissingPlugin(GstMessage *message) {
    const GlibString detail(gst_missing_plugin_message_get_installer_detail(message));
    const GlibString name(gst_missing_plugin_message_get_description(message));
    const bool isDecoder = detail && std::strstr(detail.get(), "|decoder-");
    const bool isPicture = detail && std::strstr(detail.get(), "|decoder-video/");
    // The packages that nearly every video needs. The plugin's name tells what else may be missing.
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
