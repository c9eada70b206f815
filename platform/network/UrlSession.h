// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>
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
    /// Where the body is written, atomically and only when it arrived whole; its folder is made
    /// if it is missing. Empty keeps the body in memory.
    QString destination;
    /// A longer body counts as an error; measured after decompression.
    qint64 largestBody = qint64(16) * 1024 * 1024;
    /// The request fails when it takes longer than this, and so does each that a redirect leads to;
    /// milliseconds.
    int wholeTimeoutMs = 60'000;
    /// Only the reply's head matters: its body is not read.
    bool ignoresBody = false;
    /// Reaches the server once at most: on a connection of its own, since an idle one may be
    /// closed already and would have the request repeated. A redirect's target is asked once, too.
    bool onlyOnce = false;
};

/// How a task ended. The HTTP status is reported but never judged: any reply is a success.
struct UrlResponse {
    /// Empty on success. Otherwise why there is no reply, or why its body is torn, too long or
    /// could not be written.
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

/// Requests over HTTP and HTTPS, carried by a worker thread that lives while there is something to
/// carry and a few seconds longer. Completions are called on the main thread in the order in which
/// the requests ended, never from inside start(). Certificates are always verified. Redirects are
/// followed on the same host and scheme only. Headers that identify the user or the system are
/// never sent, and no cookies are kept. Main thread only, but for fetch() and cancelAll().
class UrlSession {
public:
    struct Configuration {
        /// A host that is verified against authorities of its own, and against no others; PEM
        /// text. All other hosts are verified against the system's authorities.
        QString privateHost;
        QByteArray privateAuthorities;
        /// A transfer that stays silent for this long fails; whole seconds, 1 at least.
        int idleTimeoutMs = 60'000;
        /// Further requests wait, in order, while so many are under way.
        int mostAtOnce = 6;
        /// Asked before anything is sent, on any thread; a request that is not allowed fails.
        /// Without it all are.
        std::function<bool()> isAllowed;
    };

    using Completion = std::function<void(const UrlResponse &)>;

    explicit UrlSession(Configuration configuration);
    /// Closes the session. Any thread once it is closed.
    ~UrlSession();

    /// Ends the session and its thread: cancels what is under way without calling its completions
    /// and refuses what comes later.
    void close();

    UrlTaskPtr start(const UrlRequest &request, Completion completion);

    /// Starts what was asked for before there was an application object, without which no
    /// completion could be delivered.
    void wake();

    /// Cancels everything that waits or is under way; it fails. Any thread.
    void cancelAll();

    /// Waits for the answer. Any thread but the main one; nothing when the session ends first or
    /// there is no application object.
    std::optional<UrlResponse> fetch(const UrlRequest &request);

private:
    void taskEnded();

    std::mutex m_closeMutex;
    bool m_closed = false;
    int m_underWay = 0;
    TimerPtr m_idleTimer;
    // Expires when the session is closed, for completions that are still posted then.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
    const std::shared_ptr<UrlSessionWorker> m_worker;
};

} // namespace velmora
