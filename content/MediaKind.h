// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// What a media file must be.
enum class MediaKind { Picture, Film };

} // namespace velmora
