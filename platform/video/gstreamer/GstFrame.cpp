// SPDX-License-Identifier: Apache-2.0
#include "GstFrame.h"

#include <gst/video/video.h>

#include <memory>

namespace velmora {

namespace {

// A mapped buffer, which the mapping keeps. The sample is not kept, because the sink reuses it.
struct MappedFrame {
    GstVideoFrame frame{};
    bool isMapped = false;

    ~MappedFrame() {
        if (isMapped)
            gst_video_frame_unmap(&frame);
    }
};

void release(void *mapped) {
    delete static_cast<MappedFrame *>(mapped);
}

constexpr GstVideoFormat Format =
    G_BYTE_ORDER == G_LITTLE_ENDIAN ? GST_VIDEO_FORMAT_BGRx : GST_VIDEO_FORMAT_xRGB;

} // namespace

const char *gstFrameFormat() {
    return gst_video_format_to_string(Format);
}

QImage gstFrameImage(GstSample *sample) {
    const GstCaps *caps = gst_sample_get_caps(sample);
    GstBuffer *buffer = gst_sample_get_buffer(sample);
    GstVideoInfo info;
    if (!caps || !buffer || !gst_video_info_from_caps(&info, caps) ||
        GST_VIDEO_INFO_FORMAT(&info) != Format)
        return {};
    auto mapped = std::make_unique<MappedFrame>();
    mapped->isMapped = gst_video_frame_map(&mapped->frame, &info, buffer, GST_MAP_READ);
    if (!mapped->isMapped)
        return {};
    const GstVideoFrame &frame = mapped->frame;
    const auto *pixels = static_cast<const uchar *>(GST_VIDEO_FRAME_PLANE_DATA(&frame, 0));
    const int width = GST_VIDEO_FRAME_WIDTH(&frame);
    const int height = GST_VIDEO_FRAME_HEIGHT(&frame);
    const int stride = GST_VIDEO_FRAME_PLANE_STRIDE(&frame, 0);
    return {pixels, width, height, stride, QImage::Format_RGB32, release, mapped.release()};
}

} // namespace velmora
