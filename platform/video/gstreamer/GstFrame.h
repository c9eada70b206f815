// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>

#include <gst/gst.h>

namespace velmora {

/// The format that GstFrame::image() takes, as it stands in capabilities: 32 bits a pixel in
/// the machine's own byte order.
const char *gstFrameFormat();

/// The picture of a sample as an image that shares the pixels and keeps them. A null image when
/// it is not in the format.
QImage gstFrameImage(GstSample *sample);

} // namespace velmora
