// SPDX-License-Identifier: Apache-2.0
#pragma once

class QIODevice;

namespace velmora {

/// Tells animations from still GIF files. Qt counts all frames for that, which takes too long on
/// the main thread for a file of a million frames. Any thread.
class GifFrames {
public:
    /// True when there is a second frame; reads up to that. False for what is no GIF file.
    static bool areSeveral(QIODevice &file);
};

} // namespace velmora
