// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstPointer.h"

namespace velmora {

/// Makes a sink that has opened the system's sound device. Returns null when there is no device and
/// no sound server, or when the server does not answer within 0.7 seconds. Blocks as long, so not
/// on the main thread.
GstPointer<GstElement> openGstSoundSink();

} // namespace velmora
