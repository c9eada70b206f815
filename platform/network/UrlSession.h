// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QThread>
#include <QtCore/QUrl>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace velmora {

class UrlSessionWorker;

/// What to ask for, and where the answer's body goes.
struct UrlRequest {
    QUrl url;
    QByteArray method = "GET";
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers;
    /// Where the body is written, atomically and only when it arrived whole; its folder is made
    /// if it is missing. Empty keeps the body in memory.
    QString destination;
    /// A longer body counts as an error.
    qint64 largestBody = 16 * 1024 * 1024;
    /// The reply's arrival is all that matters: its body is not read.
    bool ignoresBody = false;
    /// Reaches the server once at most: on a connection of its own, since one that was idle may
    /// be closed already, and not again when that breaks without a reply. A redirect's target is
    /// asked once, too.
    bool onlyOnce = false;
};

/// How a task ended. The HTTP status is told but never judged: any reply is a success.
struct UrlResponse {
    /// Empty unless the transport failed, the body was torn or too long, or could not be
    /// written.
    QString error;
    int status = 0;
    QByteArray body;
    qint64 bodySize = 0;
};

/// A request under way. Main thread only.
class UrlTask {
public:
    /// True until the completion is called.
    bool isRunning() const { return m_running; }

private:
    friend class UrlSession;
    bool m_running = true;
};

using UrlTaskPtr = std::shared_ptr<UrlTask>;

/// Requests over HTTP and HTTPS, carried by one worker thread that starts with the first of
/// them. Completions are called on the main thread in the order in which the requests ended,
/// never from inside start(). Redirects are followed when no less safe; certificates are always
/// verified; a transfer that stays silent for the idle timeout fails. When there has been
/// nothing to carry for a while, connections and what belongs to them are let go until the next
/// request. Main thread only, but for fetch().
class UrlSession {
public:
    struct Configuration {
        /// A host that is verified against authorities of its own, and against no others; PEM
        /// text. All other hosts are verified against the system's authorities.
        QString privateHost;
        QByteArray privateAuthorities;
        int idleTimeoutMs = 60'000;
        /// Further requests wait, in order, while so many are under way.
        int mostAtOnce = 6;
    };

    using Completion = std::function<void(const UrlResponse &)>;

    explicit UrlSession(Configuration configuration);
    /// Closes the session. Any thread once it is closed.
    ~UrlSession();

    /// Ends the session: aborts what is under way without calling its completions, and carries
    /// nothing any more.
    void close();

    UrlTaskPtr start(const UrlRequest &request, Completion completion);

    /// Begins to carry what was asked for before there was an application object, without which
    /// no thread can serve the network.
    void wake();

    /// Waits for the answer. Any thread but the main one; nothing when the session ends first or
    /// there is no application object.
    std::optional<UrlResponse> fetch(const UrlRequest &request);

private:
    void startThread();
    void taskEnded();

    std::mutex m_closeMutex;
    bool m_closed = false;
    int m_underWay = 0;
    TimerPtr m_idleTimer;
    // Expires when the session is closed, for completions that are still posted then.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
    QThread m_thread;
    UrlSessionWorker *m_worker;
};

} // namespace velmora
