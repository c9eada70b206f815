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
    m_limit.reset(gst_bin_get_by_name(GST_BIN(bin), "limit"));
    const GstPointer<GstPad> input(gst_element_get_static_pad(scaler.get(), "sink"));
    const auto kinds = GstPadProbeType(GST_PAD_PROBE_TYPE_BUFFER | GST_PAD_PROBE_TYPE_EVENT_BOTH);
    gst_pad_add_probe(input.get(), kinds, seeInput, this, nullptr);
}

void GstPictureSize::setPlace(const QSize &place) {
    const std::lock_guard lock(m_mutex);
    m_place = place;
}

QSize GstPictureSize::place() {
    const std::lock_guard lock(m_mutex);
    return m_place;
}

GstPadProbeReturn GstPictureSize::seeInput(GstPad *, GstPadProbeInfo *info, gpointer self) {
    auto *size = static_cast<GstPictureSize *>(self);
    if (GST_PAD_PROBE_INFO_TYPE(info) & GST_PAD_PROBE_TYPE_BUFFER) {
        size->apply();
        return GST_PAD_PROBE_OK;
    }
    GstEvent *event = GST_PAD_PROBE_INFO_EVENT(info);
    if (GST_EVENT_TYPE(event) == GST_EVENT_CAPS) {
        GstCaps *caps = nullptr;
        gst_event_parse_caps(event, &caps);
        size->m_video = squarePixels(caps);
        size->apply();
    }
    // What comes before the scaling element does not depend on the limit. The decoder would
    // negotiate anew, too, and wait until its queue is empty.
    return GST_EVENT_TYPE(event) == GST_EVENT_RECONFIGURE ? GST_PAD_PROBE_DROP : GST_PAD_PROBE_OK;
}

// Only on the thread that then passes the picture or the format on to the scaling element: a limit
// that changes while that element negotiates its output makes it give up, which ends the video.
void GstPictureSize::apply() {
    const QSize place = this->place();
    QSize limit;
    if (!place.isEmpty() && !m_video.isEmpty()) {
        const QSize size = m_video.scaled(place, Qt::KeepAspectRatio).expandedTo({1, 1});
        if (size.width() < m_video.width() || size.height() < m_video.height())
            limit = size;
    }
    if (limit == m_size)
        return;
    m_size = limit;
    const QByteArray format = limit.isEmpty() ? anySize()
                                              : sizeFormat(QByteArray::number(limit.width()),
                                                           QByteArray::number(limit.height()));
    const GstCapsPointer caps(gst_caps_from_string(format.constData()));
    g_object_set(m_limit.get(), "caps", caps.get(), nullptr);
}

} // namespace velmora
