#pragma once

#include "platform/VideoEngine.h"

#include <QtCore/QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace velmora {

/// What came from an engine since it was last asked.
struct VideoNews {
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
/// main thread never waits here: orders are queued, news collected, and a session that is closed
/// ends by itself, however long that takes.
class VideoSession final : private VideoEngineListener,
                           public std::enable_shared_from_this<VideoSession> {
public:
    using Order = std::function<void(VideoEngine &)>;

    /// @param receiver gets one event of type User whenever there are news to take
    VideoSession(QObject *receiver, VideoSource source);

    /// Has a thread load what an engine needs, so that the first video starts as fast as the
    /// others.
    static void warmUp();

    /// Starts the thread, which opens the source. A failure to do so is news, too.
    void begin();

    /// Queues an order for the engine.
    void run(Order order);

    /// Queues the order to go to a time; an end that was reached before is forgotten.
    void seek(double seconds);

    /// No event is sent any more and the engine goes as soon as it can. Repeatable.
    void close();

    VideoNews takeNews();
    VideoProgress progress() const;

private:
    void serve();
    void serveOrders(VideoEngine &engine);
    QString faultOfSource() const;
    void tell(const std::function<void(VideoNews &)> &change);

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
    std::deque<Order> m_orders;
    VideoNews m_news;
    VideoProgress m_progress;
    bool m_newsPosted = false;
    bool m_closed = false;
    int m_seeksUnderWay = 0;
};

} // namespace velmora
