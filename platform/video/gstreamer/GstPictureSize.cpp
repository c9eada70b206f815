// SPDX-License-Identifier: Apache-2.0
#include "GstPictureSize.h"

#include "GstDecoder.h"
#include "GstFrame.h"

namespace velmora {

namespace {

// What a decoded picture looks like on square pixels.
QSize squarePixels(const GstCaps *caps) {
    const GstStructure *format = gst_caps_get_structure(caps, 0);
    int width = 0;
    int height = 0;
    int across = 1;
    int down = 1;
    if (!gst_structure_get_int(format, "width", &width) ||
        !gst_structure_get_int(format, "height", &height))
        return {};
    gst_structure_get_fraction(format, "pixel-aspect-ratio", &across, &down);
    if (across > down && down > 0)
        width = int(gst_util_uint64_scale_int(guint64(width), across, down));
    else if (across > 0)
        height = int(gst_util_uint64_scale_int(guint64(height), down, across));
    return {width, height};
}

QByteArray sizeFormat(const QByteArray &width, const QByteArray &height) {
    return "video/x-raw,pixel-aspect-ratio=1/1,width=" + width + ",height=" + height;
}

QByteArray anySize() {
    const QByteArray side = "[1," + QByteArray::number(GstDecoder::LargestSide) + ']';
    return sizeFormat(side, side);
}

} // namespace

QByteArray GstPictureSize::description() {
    return "videoscale name=scale add-borders=false ! capsfilter name=limit caps=" + anySize() +
           " ! videoconvert ! video/x-raw,format=" + gstFrameFormat();
}

void GstPictureSize::attach(GstElement *bin) {
    const GstPointer<GstElement> scaler(gst_bin_get_by_name(GST_BIN(bin), "scale"));
    {
        const std::lock_guard lock(m_mutex);
        m_limit.reset(gst_bin_get_by_name(GST_BIN(bin), "limit"));
    }
    const GstPointer<GstPad> input(gst_element_get_static_pad(scaler.get(), "sink"));
    gst_pad_add_probe(input.get(), GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM, seeEvent, this, nullptr);
}

void GstPictureSize::setPlace(const QSize &place) {
    const std::lock_guard lock(m_mutex);
    m_place = place;
    apply();
}

GstPadProbeReturn GstPictureSize::seeEvent(GstPad *, GstPadProbeInfo *info, gpointer self) {
    GstEvent *event = GST_PAD_PROBE_INFO_EVENT(info);
    if (GST_EVENT_TYPE(event) == GST_EVENT_CAPS) {
        auto *size = static_cast<GstPictureSize *>(self);
        GstCaps *caps = nullptr;
        gst_event_parse_caps(event, &caps);
        const std::lock_guard lock(size->m_mutex);
        size->m_video = squarePixels(caps);
        size->apply();
    }
    return GST_PAD_PROBE_OK;
}

void GstPictureSize::apply() {
    if (!m_limit || m_video.isEmpty())
        return;
    QByteArray format = anySize();
    if (!m_place.isEmpty()) {
        const QSize size = m_video.scaled(m_place, Qt::KeepAspectRatio).expandedTo({1, 1});
        if (size.width() < m_video.width() || size.height() < m_video.height())
            format =
                sizeFormat(QByteArray::number(size.width()), QByteArray::number(size.height()));
    }
    const GstCapsPointer caps(gst_caps_from_string(format.constData()));
    g_object_set(m_limit.get(), "caps", caps.get(), nullptr);
}

} // namespace velmora
