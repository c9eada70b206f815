// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "FrameDecoder.h"
#include "TimeSource.h"

#include <Velmora/Timer.h>

#include <QtGui/QPixmap>

#include <functional>

namespace velmora {

/// Plays a picture for a view that draws it: decodes its frames on another thread, at the size at
/// which they are drawn, and says when there is a new one. A frame is decoded when it is due, and
/// not earlier, so that only one is in memory. While a frame is not drawn, because nobody can see
/// the view, nothing is decoded and no timer runs. Main thread only.
class PicturePlayer {
public:
    /// @param changed called when frame() or hasFailed() has changed; never inside another call
    PicturePlayer(std::shared_ptr<FrameDecoder> decoder, std::function<void()> changed);
    ~PicturePlayer();

    /// The view draws frame() now, at this size in pixels.
    void drawn(const QSize &size);

    /// Sets whether an animation plays. While it does not, it stays at its frame, the first one at
    /// the beginning, and no timer runs. To be followed by a redraw of the view. Default: true.
    void setPlaying(bool playing);

    /// Frees the decoded frames, for a view that is hidden for long. When the view is drawn next,
    /// the frame where the picture was is decoded again.
    void dropFrames();

    /// The frame to draw; null before the first is decoded. It may have another size than the view
    /// for a moment.
    const QPixmap &frame() const { return m_frame; }
    /// The picture can't be decoded, and there is no frame.
    bool hasFailed() const { return m_hasEnded && m_frame.isNull(); }
    /// The number of frames so far.
    int frameCount() const { return m_frameCount; }

private:
    using Result = std::optional<FrameDecoder::Frame>;

    void decode();
    void decoded(const Result &result, const QSize &size, bool isAgain);
    void present(const FrameDecoder::Frame &frame);
    void tellOfChange();

    const std::shared_ptr<FrameDecoder> m_decoder;
    const std::function<void()> m_changed;
    QPixmap m_frame;
    QSize m_frameSize;               // for which m_frame was decoded
    QSize m_size;                    // at which it is drawn
    TimeSource::Duration m_asked{0}; // when the last frame was asked for
    TimerPtr m_timer;                // until the next frame is due
    int m_frameCount = 0;
    bool m_isPlaying = true;
    bool m_isDecoding = false;
    bool m_isDrawn = false; // the view has drawn m_frame
    bool m_hasEnded = false;
    bool m_hasDropped = false; // m_frame is to be decoded again
    // Reset at the end, so that a frame which is still being decoded is dropped.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
};

} // namespace velmora
