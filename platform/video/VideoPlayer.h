// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtCore/QUrl>
#include <QtGui/QImage>

#include <chrono>
#include <functional>
#include <memory>

namespace velmora {

class VideoSession;
struct VideoUpdate;

/// Plays one video file. No function blocks: all slow work is done on a thread of the video's own,
/// and the destructor waits for nothing. While the main thread is busy, pictures are skipped and
/// playback goes on. A video that makes no progress for two seconds (ten until the media framework
/// is loaded), or whose sound device fails, is restarted without sound from where it was, at most
/// twice for each load(). Main thread only.
class VideoPlayer : public QObject {
public:
    enum class Status {
        Unknown, ///< nothing is loaded, or the video is not open yet
        Ready,   ///< the video is open and its duration is known
        Failed,  ///< the video can't be played; the log has the reason
    };

    /// Called on the main thread, never inside one of the player's functions. A handler may destroy
    /// the player, and may be empty.
    struct Handlers {
        /// The first picture has arrived, also while paused. Once for each load().
        std::function<void()> firstFrame;
        /// frame() has changed.
        std::function<void()> frameAvailable;
        /// The end was reached. Once each time.
        std::function<void()> ended;
        /// The status became Failed.
        std::function<void()> failed;
    };

    explicit VideoPlayer(Handlers handlers);
    ~VideoPlayer() override;

    /// Prepares, in the background, the start of the next video. Call it some seconds before each:
    /// what no video has used within a minute is given up.
    static void warmUp();

    /// Opens a video and pauses at its start. Replaces an earlier one; the player stays muted if it
    /// was. The video fails unless the URL is that of a local file.
    void load(const QUrl &url);

    /// Plays, as soon as the video is ready. Ignored at the end, until seekToStart().
    void play();
    void pause();

    /// Goes to the start, also from the end. A playing video plays on from there.
    void seekToStart();

    void setMuted(bool muted);
    bool isMuted() const { return m_muted; }

    /// The size, in pixels, of the place where the pictures are shown. New pictures that are larger
    /// arrive scaled down to fit into it, with their aspect ratio kept; for a place larger than
    /// 1920x1080, smaller ones arrive enlarged. Empty, as at first: they keep their size. Costs
    /// nothing when it has not changed. Applies to later videos, too.
    void setPlace(const QSize &place);

    Status status() const { return m_status; }

    /// True from play() until pause(), the end or a failure.
    bool isPlaying() const { return m_playing; }

    /// The length of the whole video in seconds; 0 while it is not ready, and when it is unknown.
    double durationSeconds() const { return m_duration; }

    /// The latest picture, which shares its pixels with the engine; null before the first one.
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
    QSize m_place;
    double m_duration = 0;
    QImage m_frame;

    // The engine has opened its source.
    bool m_engineReady = false;
    // Where a restarted engine goes, in seconds. Until then its pictures, of the start, are not
    // shown.
    double m_resumeAt = 0;
    int m_restarts = 0;
    TimerPtr m_watchTimer;
    quint64 m_movesSeen = 0;
    SteadyClock::time_point m_lastMove;
};

} // namespace velmora
