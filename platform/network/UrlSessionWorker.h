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

/// The session's side on a worker thread of its own: takes requests in order, keeps at most so many
/// under way and hands their answers back. The thread is started by the first request, ends with
/// stop() or endWhenIdle(), and is started again by the next request. Any thread.
class UrlSessionWorker : public std::enable_shared_from_this<UrlSessionWorker> {
public:
    struct Job {
        UrlRequest request;
        /// Called on the worker thread, unless the worker is stopped first.
        std::function<void(UrlResponse)> done;
    };

    explicit UrlSessionWorker(UrlSession::Configuration configuration);
    ~UrlSessionWorker();

    void enqueue(Job job);

    /// Starts the thread when something waits for an application object that is there now.
    void wake();

    /// Fails everything that waits or is under way.
    void cancelAll();

    /// Ends the thread and its connections, if there is nothing to carry.
    void endWhenIdle();

    /// Drops everything without an answer and waits until the thread has ended.
    void stop();

private:
    using Transfers = std::vector<std::pair<std::unique_ptr<UrlTransfer>, Job>>;

    void startThread();
    void run();
    bool isEnding(const Transfers &active);
    void carry(CURLM *multi);
    void cancelWhatIsAsked(Transfers &active, CURLM *multi);
    void startNext(Transfers &active, CURLM *multi);
    bool takeFinished(Transfers &active, CURLM *multi);
    void wakeThread();

    const UrlSession::Configuration m_configuration;

    std::mutex m_mutex;
    std::condition_variable m_ended;
    std::deque<Job> m_pending;
    /// What waited when cancelAll() was called.
    std::deque<Job> m_cancelled;
    /// Set while the thread runs its loop.
    CURLM *m_multi = nullptr;
    bool m_isRunning = false;
    bool m_isStopped = false;
    bool m_endsWhenIdle = false;
    bool m_cancels = false;
};

} // namespace velmora
