// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "VideoEngine.h"

#include <QtCore/QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace velmora {

/// What an engine has reported since the player last asked.
struct VideoUpdate {
    /// The latest picture; null when there is none newer.
    QImage frame;
    /// The duration, told once, when the video is ready.
    std::optional<double> duration;
    bool ended = false;
    /// Empty unless playback is over for good.
    QString failure;
    bool soundIsAtFault = false;
};

/// How far an engine has come. A count that stands still is an engine that does.
struct VideoProgress {
    quint64 moves = 0;
    double position = 0;
    double quietFor = 0;
};

/// One engine on a thread of its own, between the player and whatever the engine blocks on. The
/// main thread never waits here: commands are queued, updates collected, and a session that is
/// closed ends by itself, however long that takes.
class VideoSession final : private VideoEngineListener,
                           public std::enable_shared_from_this<VideoSession> {
public:
    using Command = std::function<void(VideoEngine &)>;

    /// @param receiver gets one event of type User whenever there is an update to take
    VideoSession(QObject *receiver, VideoSource source);

    /// Has a thread load what an engine needs, so that the first video starts as fast as the
    /// others.
    static void warmUp();

    /// Starts the thread, which opens the source. A failure to do so is reported, too.
    void begin();

    /// Queues a command for the engine.
    void run(Command command);

    /// Queues a seek; an end that was reached before is forgotten.
    void seek(double seconds);

    /// No event is sent any more and the engine goes as soon as it can. Repeatable.
    void close();

    VideoUpdate takeUpdate();
    VideoProgress progress() const;

private:
    void serve();
    void runCommands(VideoEngine &engine);
    QString faultOfSource() const;
    /// Changes the update that is waiting to be taken, and has the receiver told of it.
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
};

} // namespace velmora
