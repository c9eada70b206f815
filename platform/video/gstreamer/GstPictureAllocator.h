// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstPointer.h"
#include "VideoEngine.h"

namespace velmora {

/// Makes an allocator that takes a picture's memory from a PictureMemory, and from the system when
/// there is none left.
GstPointer<GstAllocator> makeGstPictureAllocator(PictureMemory *memory);

} // namespace velmora
