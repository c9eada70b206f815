// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtGui/QImage>

#include <chrono>
#include <functional>
#include <memory>

namespace velmora {

class VideoSession;
struct VideoUpdate;

/// Plays one video file. Nothing here blocks: what may take time happens on a thread of the
/// video's own, and destroying the player in any state waits for nothing. A busy main thread
/// misses pictures, playback goes on meanwhile. When nothing comes of it for two seconds, opening
/// or playing, or the sound device breaks down, it is taken up again from there without sound, at
/// most twice a load. Main thread only.
class VideoPlayer : public QObject {
public:
    enum class Status {
        Unknown, ///< nothing loaded, or not looked at yet
        Ready,   ///< the start is there and the duration known
        Failed,  ///< for good; the log says why
    };

    /// Called on the main thread, never from inside one of the player's functions; each may
    /// destroy the player. Any may be empty.
    struct Handlers {
        /// The first picture is there, playing or not. Once a load.
        std::function<void()> firstFrame;
        /// There is a newer frame().
        std::function<void()> frameAvailable;
        /// The end was reached; once each time it is played to its end.
        std::function<void()> ended;
        /// The status became Failed.
        std::function<void()> failed;
    };

    explicit VideoPlayer(Handlers handlers);
    ~VideoPlayer() override;

    /// Loads in the background what the first video needs, once a process: worth it when a video
    /// will be played soon.
    static void warmUp();

    /// Opens a video and rests at its start, in place of an earlier one. Whether the player is
    /// muted is kept. Anything but a local file's URL fails.
    void load(const QUrl &url);

    /// Plays, or goes on playing; may be asked before the video is ready. Nothing at the end,
    /// until it was sent back to the start.
    void play();
    void pause();

    /// Goes to the start, also from the end; a playing video plays on from there.
    void seekToStart();

    void setMuted(bool muted);
    bool isMuted() const { return m_muted; }

    Status status() const { return m_status; }

    /// True from play() until pause(), the end or a failure.
    bool isPlaying() const { return m_playing; }

    /// The length of the whole video; 0 while it is not ready and when the file does not tell.
    double durationSeconds() const { return m_duration; }

    /// The latest picture, stored as it came from the engine; null before the first.
    const QImage &frame() const { return m_frame; }

    bool event(QEvent *event) override;

private:
    using SteadyClock = std::chrono::steady_clock;

    void open(bool sound);
    void close();
    void apply(const VideoUpdate &update);
    void becameReady(double duration);
    void watch();
    void watchTick();
    bool restart(const QString &reason);
    void fail(const QString &reason);
    void log(const QString &text) const;

    const Handlers m_handlers;
    QUrl m_url;
    std::shared_ptr<VideoSession> m_session;
    Status m_status = Status::Unknown;
    bool m_playing = false;
    bool m_atEnd = false;
    bool m_muted = false;
    double m_duration = 0;
    QImage m_frame;

    // The engine has opened its source; frames of one that is to go elsewhere are not shown.
    bool m_engineReady = false;
    double m_resumeAt = 0;
    int m_restarts = 0;
    TimerPtr m_watchTimer;
    quint64 m_movesSeen = 0;
    SteadyClock::time_point m_lastMove;
};

} // namespace velmora
