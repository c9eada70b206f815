// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>

#include <gst/gst.h>

namespace velmora {

/// The pixel format that gstFrameImage() takes, as GStreamer names it in capabilities. It has the
/// memory layout of QImage::Format_RGB32.
const char *gstFrameFormat();

/// Returns a sample's picture as an image, without copying: the image keeps the sample's buffer
/// until it is destroyed. A null image when the picture has another format. Any thread.
QImage gstFrameImage(GstSample *sample);

} // namespace velmora
