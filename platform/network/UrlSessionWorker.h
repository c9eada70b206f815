// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "NetworkAccess.h"
#include "UrlSession.h"

#include <QtCore/QObject>

#include <atomic>
#include <deque>
#include <mutex>

namespace velmora {

class UrlTransfer;

/// The part of a UrlSession that lives on its worker thread: starts the requests in order, limits
/// how many run at the same time, and calls back with their responses.
class UrlSessionWorker : public QObject {
    Q_OBJECT

public:
    struct Job {
        UrlRequest request;
        /// Called on the worker thread.
        std::function<void(UrlResponse)> done;
    };

    explicit UrlSessionWorker(UrlSession::Configuration configuration);
    ~UrlSessionWorker() override;

    /// Queues a request. Any thread.
    void enqueue(Job job);

    /// Aborts all requests without calling back, and ends the worker thread's event loop. Any
    /// thread.
    void stop();

    /// Closes the connections if there is no request. Any thread.
    void closeIdleConnections();

    bool event(QEvent *event) override;

private:
    void startNext();
    void abortAll();
    void closeConnections();

    const int m_mostAtOnce;
    std::mutex m_mutex;
    std::deque<Job> m_pending;
    std::atomic<bool> m_stopped = false;
    NetworkAccess m_network;
    std::vector<UrlTransfer *> m_active;
};

} // namespace velmora
