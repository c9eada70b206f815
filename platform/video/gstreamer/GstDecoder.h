// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoEngine.h"

#include <gst/gst.h>

#include <atomic>

namespace velmora {

/// Makes the pipeline's decoder, and limits what an untrusted file may do with it: which plugins
/// are used, how large pictures are, and how many threads decode them. Lives as long as the
/// pipeline is not in the state NULL, because the decoder calls it on the pipeline's threads.
class GstDecoder {
public:
    /// The longest side of a picture, and its size, in pixels: 4096x2304, more than most screens
    /// have. This limits the decoder's memory, of which a small file may otherwise claim gigabytes.
    static constexpr int LargestSide = 4096;
    static constexpr qint64 MostPixels = 9'500'000;

    /// @param listener told of a failure when the pictures are too large
    explicit GstDecoder(VideoEngineListener *listener) : m_listener(listener) {}

    /// Makes the decoder element; null when the plugin is missing. A floating reference.
    GstElement *create();

    /// From now on no sound is decoded, as nobody hears it; the decoder's pads give out what is in
    /// the file. Before the pipeline starts.
    void leaveSoundEncoded() { m_decodesSound = false; }

    /// False, with the listener told, when a stream's pictures are too large. Any thread.
    bool accepts(const GstCaps *caps);

private:
    static int choosePlugin(GstElement *, GstPad *, GstCaps *caps, GstElementFactory *factory,
                            gpointer decoder);
    static gboolean continuesWith(GstElement *, GstPad *, GstCaps *caps, gpointer decoder);
    static void elementAdded(GstBin *, GstElement *element, gpointer decoder);

    VideoEngineListener *const m_listener;
    std::atomic<bool> m_isSmall = false;
    std::atomic<bool> m_decodesSound = true;
};

} // namespace velmora
