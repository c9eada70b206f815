// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstPointer.h"

namespace velmora {

/// An open way to the system's sound, or null when there is no device, no sound server, or one
/// that does not answer within a moment. Not on the main thread.
GstPointer<GstElement> openGstSoundSink();

} // namespace velmora
