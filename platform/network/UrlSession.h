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

/// A request, and what to do with the reply's body.
struct UrlRequest {
    QUrl url;
    QByteArray method = "GET";
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers;
    /// The file that the body is written to, atomically, when it has arrived completely. A missing
    /// folder is created. Empty: the body is kept in memory.
    QString destination;
    /// In bytes; a longer body is an error.
    qint64 largestBody = 16 * 1024 * 1024;
    /// The body is not read; the request ends when the reply's headers have arrived.
    bool ignoresBody = false;
    /// The request reaches the server at most once: it is not sent again when the connection breaks
    /// without a reply. It gets a new connection, because a reused one may already be closed by the
    /// server. The same holds for the target of a redirect.
    bool onlyOnce = false;
};

/// How a request ended. A reply with any HTTP status counts as success; the caller checks the
/// status.
struct UrlResponse {
    /// The reason why the transfer failed: no reply, or a body that was incomplete, too long or
    /// could not be written. Empty on success.
    QString error;
    /// The HTTP status; 0 when there was no reply.
    int status = 0;
    /// Empty when the body was written to a file.
    QByteArray body;
    /// In bytes.
    qint64 bodySize = 0;
};

/// A started request. Main thread only.
class UrlTask {
public:
    /// True until the completion is called, and for ever when the session was closed before.
    bool isRunning() const { return m_running; }

private:
    friend class UrlSession;
    bool m_running = true;
};

using UrlTaskPtr = std::shared_ptr<UrlTask>;

/// Sends HTTP and HTTPS requests on one worker thread, which is started for the first of them.
/// Completions are called on the main thread, in the order in which the requests ended, and never
/// inside start(). Redirects are followed, but not from https to http. Certificates are always
/// verified. A transfer that receives nothing during the idle timeout fails. After five seconds
/// without a request the connections are closed. Main thread only, except for fetch().
class UrlSession {
public:
    struct Configuration {
        /// A host name whose certificate is verified against `privateAuthorities` only. All other
        /// hosts are verified against the system's certificate authorities.
        QString privateHost;
        /// Certificates in PEM format.
        QByteArray privateAuthorities;
        /// Milliseconds without any data after which a transfer fails.
        int idleTimeoutMs = 60'000;
        /// The number of transfers at the same time; further requests wait in order.
        int mostAtOnce = 6;
    };

    using Completion = std::function<void(const UrlResponse &)>;

    explicit UrlSession(Configuration configuration);
    /// Closes the session. Main thread; any thread when it is closed already.
    ~UrlSession();

    /// Aborts all requests without calling their completions, and ends the worker thread. Requests
    /// that are started later are ignored.
    void close();

    UrlTaskPtr start(const UrlRequest &request, Completion completion);

    /// Starts the requests that were made before there was an application object, which the network
    /// manager needs.
    void wake();

    /// Sends a request and waits for the reply. Any thread but the main one.
    /// @return empty when the session is closed before the reply, and without an application object
    std::optional<UrlResponse> fetch(const UrlRequest &request);

private:
    void startThread();
    void taskEnded();

    std::mutex m_closeMutex;
    bool m_closed = false;
    int m_underWay = 0;
    TimerPtr m_idleTimer;
    // Reset by close(), so that completions which are already posted are not called.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
    // Not startBackgroundThread(): the network manager needs Qt's event loop.
    QThread m_thread;
    UrlSessionWorker *m_worker;
};

} // namespace velmora
