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

/// The session's side on its worker thread: takes requests in order, keeps at most so many
/// under way and hands their answers back.
class UrlSessionWorker : public QObject {
    Q_OBJECT

public:
    struct Job {
        UrlRequest request;
        std::function<void(UrlResponse)> done;
    };

    explicit UrlSessionWorker(UrlSession::Configuration configuration);
    ~UrlSessionWorker() override;

    /// Takes a request. Any thread.
    void enqueue(Job job);

    /// Aborts everything on the worker thread, answers nothing any more and ends the thread. Any
    /// thread.
    void stop();

    /// Lets connections go when there is nothing to carry. Any thread.
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
