// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoPlayer.h"
#include "VideoView.h"

#include <QtCore/QPointer>
#include <QtCore/QUrl>

#include <functional>
#include <memory>

namespace velmora {

/// Plays the video of one splash screen and draws it in a view. Main thread only.
class SplashScreenPlayer {
public:
    /// Opens a video, in place of an earlier one, and pauses at its start.
    /// @param view  shows the pictures; may be destroyed meanwhile
    /// @param ended called when the video was played to its end; may destroy this object
    /// @param failed called when it can't be played, or no further; may destroy this object
    void open(const QUrl &url, VideoView *view, std::function<void()> ended,
              std::function<void()> failed);

    // Ignored before open() and after close().
    void playFromStart();
    void play();
    void pause();

    /// Applies to the open video and to later ones.
    void setMuted(bool muted);
    bool isMuted() const { return m_muted; }

    /// Length of the video, seconds; 0 until it is known.
    double seconds() const;

    /// Ends the video. Its last picture stays in the view, which may be fading out.
    void close();
    /// Ends the video and clears the view.
    void closeAndClear();

    /// Null before open() and after close().
    VideoPlayer *player() const { return m_player.get(); }

private:
    QPointer<VideoView> m_view;
    std::unique_ptr<VideoPlayer> m_player;
    bool m_muted = false;
};

} // namespace velmora
