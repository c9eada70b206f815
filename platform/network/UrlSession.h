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

/// A request, and where the reply's body goes.
struct UrlRequest {
    QUrl url;
    QByteArray method = "GET";
    QByteArray body;
    /// The file that the body is written to, atomically, when it has arrived completely. A missing
    /// folder is created. Empty: the body is kept in memory.
    QString destination;
    /// In bytes, after decompression; a longer body is an error.
    qint64 largestBody = qint64(16) * 1024 * 1024;
    /// Milliseconds after which the request fails, however much has arrived; they begin again for
    /// the target of a redirect.
    int wholeTimeoutMs = 60'000;
    /// The body is not read; the request ends when the reply's headers have arrived.
    bool ignoresBody = false;
    /// The request reaches the server at most once. It gets a new connection, because libcurl
    /// repeats a request when a reused connection turns out to be closed. The same holds for the
    /// target of a redirect.
    bool onlyOnce = false;
};

/// How a request ended. A reply with any HTTP status counts as success; the caller checks the
/// status.
struct UrlResponse {
    /// The reason why the transfer failed: no reply, or a body that was incomplete, too long or
    /// could not be written. Empty on success.
    QString error;
    /// Nothing was sent, because the request was not allowed or was cancelled before.
    bool isRefused = false;
    /// The destination could not be made or written.
    bool couldNotWrite = false;
    /// The HTTP status; 0 when there was no reply.
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

/// Sends HTTP and HTTPS requests on a worker thread, which is started for the first of them and
/// ends after five seconds without a request. Completions are called on the main thread, in the
/// order in which the requests ended, and never inside start(). Certificates are always verified.
/// Redirects are followed only within the same host and scheme. No cookies are kept, and no header
/// tells anything about the user or the system. Main thread only, except for fetch() and
/// cancelAll().
class UrlSession {
public:
    struct Configuration {
        /// A host name whose certificate is verified against `privateAuthorities` only. All other
        /// hosts are verified against the system's certificate authorities.
        QString privateHost;
        /// Certificates in PEM format.
        QByteArray privateAuthorities;
        /// Milliseconds without any data after which a transfer fails, rounded up to seconds.
        int idleTimeoutMs = 60'000;
        /// The number of transfers at the same time; further requests wait in order.
        int mostAtOnce = 6;
        /// Called before a request is sent, on the worker thread; when it returns false, the
        /// request fails instead. Empty: all requests are allowed.
        std::function<bool()> isAllowed;
        /// Called on the worker thread, each time that it starts, before it loads libcurl. Whoever
        /// loads another library meanwhile waits until libcurl is loaded, so this loads what the
        /// main thread will need, or waits until that has painted. May be empty.
        std::function<void()> beforeLoading;
    };

    using Completion = std::function<void(const UrlResponse &)>;

    explicit UrlSession(Configuration configuration);
    /// Closes the session. Any thread once it is closed.
    ~UrlSession();

    /// Aborts all requests without calling their completions, and ends the worker thread. Requests
    /// that are started later are ignored.
    void close();

    /// Starts a request. The completion is called once, unless the session is closed before.
    UrlTaskPtr start(const UrlRequest &request, Completion completion);

    /// Starts the requests that were made before there was an application object, which delivers
    /// the completions.
    void wake();

    /// Cancels all requests; their completions report an error. Any thread.
    void cancelAll();

    /// Sends a request and waits for the reply. Any thread but the main one.
    /// @return empty when the session is closed before the reply, and without an application object
    std::optional<UrlResponse> fetch(const UrlRequest &request);

private:
    void taskEnded();

    std::mutex m_closeMutex;
    bool m_closed = false;
    int m_underWay = 0;
    TimerPtr m_idleTimer;
    // Reset by close(), so that completions which are already posted are not called.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
    const std::shared_ptr<UrlSessionWorker> m_worker;
};

} // namespace velmora
