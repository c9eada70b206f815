// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PictureEnlarger.h"
#include "VideoEngine.h"

#include <QtCore/QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace velmora {

/// What an engine has reported since the last VideoSession::takeUpdate().
struct VideoUpdate {
    /// The latest picture; null when there is no new one.
    QImage frame;
    /// The duration in seconds. Set once, when the video is ready.
    std::optional<double> duration;
    bool ended = false;
    /// Why the engine failed; empty unless it has. See VideoEngineListener::failed().
    QString failure;
    bool soundIsAtFault = false;
};

/// The progress of an engine, see VideoEngineListener::moved().
struct VideoProgress {
    /// How often there was progress. The watchdog restarts a player when this stays the same.
    quint64 moves = 0;
    double position = 0;
    double quietFor = 0;
};

/// Runs one engine on a thread of its own, because the engine's functions may block. The player
/// never waits: it queues commands, and takes the collected updates. A closed session ends when its
/// engine returns, and keeps itself alive until then. Main thread only.
class VideoSession final : private VideoEngineListener,
                           public std::enable_shared_from_this<VideoSession> {
public:
    using Command = std::function<void(VideoEngine &)>;

    /// @param receiver gets an event of type QEvent::User when there is an update to take; null for
    ///                 a session that is closed
    VideoSession(QObject *receiver, VideoSource source);

    /// See VideoPlayer::warmUp(); on a thread.
    static void warmUp();

    /// Starts the thread, which opens the source. When there is no thread, an update reports the
    /// failure.
    void begin();

    /// Queues a command for the engine.
    void run(Command command);

    /// Queues a seek. An end that was reached before it is no longer reported.
    void seek(double seconds);

    /// See VideoPlayer::setPlace().
    void setPlace(const QSize &place);

    /// Stops sending events, drops the queued commands and lets the thread destroy the engine. Does
    /// not wait for it. Any thread; ignored the second time.
    void close();

    VideoUpdate takeUpdate();
    VideoProgress progress() const;

private:
    void serve();
    void runCommands(VideoEngine &engine);
    QString faultOfSource() const;
    /// Changes the pending update and sends an event to the receiver.
    void change(const std::function<void(VideoUpdate &)> &change);

    void prepared() override;
    void frame(const QImage &picture) override;
    void moved(double position, double quietFor) override;
    void ended() override;
    void failed(const QString &reason, bool soundIsAtFault) override;
    void remark(const QString &text) override;

    const VideoSource m_source;
    bool m_warmsUpOnly = false;
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    QObject *m_receiver;
    std::deque<Command> m_commands;
    VideoUpdate m_update;
    VideoProgress m_progress;
    bool m_updatePosted = false;
    bool m_closed = false;
    int m_seeksUnderWay = 0;
    QSize m_place;
    PictureEnlarger m_enlarger;
};

} // namespace velmora
