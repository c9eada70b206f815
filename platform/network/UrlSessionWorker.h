// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"
#include "UrlTransfer.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace velmora {

/// Carries out the requests of a session on a thread of its own: starts them in order, at most
/// Configuration::mostAtOnce at a time, and reports their responses. The thread is started by the
/// first request, ends with stop() or endWhenIdle(), and is started again by the next request. Any
/// thread.
class UrlSessionWorker : public std::enable_shared_from_this<UrlSessionWorker> {
public:
    struct Job {
        UrlRequest request;
        /// Called on the worker thread, unless the worker is stopped first.
        std::function<void(UrlResponse)> done;
    };

    explicit UrlSessionWorker(UrlSession::Configuration configuration);
    ~UrlSessionWorker();

    /// Queues a request and starts the thread, unless there is no application object yet.
    void enqueue(Job job);

    /// Starts the thread for requests that were queued before there was an application object.
    void wake();

    /// Ends all requests with an error.
    void cancelAll();

    /// Ends the thread and its connections as soon as there are no requests.
    void endWhenIdle();

    /// Drops all requests without a response and waits until the thread has ended. That has no
    /// bound while the thread loads libcurl: nothing can interrupt it, and exit() itself waits for
    /// the loading to end.
    void stop();

private:
    using Transfers = std::vector<std::pair<std::unique_ptr<UrlTransfer>, Job>>;

    // With the mutex held.
    void startThread();
    void wakeThread();

    // On the worker thread.
    void run();
    /// Ends all requests: there is no libcurl to send them.
    void failPending(const QString &error);
    void transferLoop(CURLM *multi);
    /// True when the loop is to end. Then no other thread uses the CURLM any more.
    bool leavesLoop(const Transfers &active);
    void cancelAllIfRequested(Transfers &active, CURLM *multi);
    void startNext(Transfers &active, CURLM *multi);
    bool takeFinished(Transfers &active, CURLM *multi);

    const UrlSession::Configuration m_configuration;

    std::mutex m_mutex;
    std::condition_variable m_ended;
    std::deque<Job> m_pending;
    /// The pending requests when cancelAll() was called.
    std::deque<Job> m_cancelled;
    /// Null while the thread is not in its loop.
    CURLM *m_multi = nullptr;
    bool m_isRunning = false;
    bool m_isStopped = false;
    bool m_endsWhenIdle = false;
    bool m_isCancelRequested = false;
};

} // namespace velmora
