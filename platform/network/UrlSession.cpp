// SPDX-License-Identifier: Apache-2.0
#include "UrlSession.h"

#include "MainQueue.h"
#include "ProcessRoot.h"
#include "UrlSessionWorker.h"

#include <QtCore/QCoreApplication>

#include <condition_variable>
#include <utility>

namespace velmora {

namespace {

constexpr double IdleSeconds = 5;

// Passes one response from the worker thread to a thread that waits for it.
struct PendingResponse {
    std::mutex mutex;
    std::condition_variable arrived;
    std::optional<UrlResponse> response;
    bool isOver = false;

    void finish(std::optional<UrlResponse> result) {
        const std::lock_guard lock(mutex);
        if (isOver)
            return;
        response = std::move(result);
        isOver = true;
        arrived.notify_all();
    }
};

} // namespace

UrlSession::UrlSession(Configuration configuration)
    : m_worker(std::make_shared<UrlSessionWorker>(std::move(configuration))) {}

UrlSession::~UrlSession() {
    close();
}

void UrlSession::close() {
    {
        const std::lock_guard lock(m_closeMutex);
        if (std::exchange(m_closed, true))
            return;
        m_alive.reset();
    }
    // At exit() there is no event loop any more that would fire it.
    if (m_idleTimer && !ProcessRoot::hasEnded())
        m_idleTimer->invalidate();
    m_worker->stop();
}

void UrlSession::wake() {
    const std::lock_guard lock(m_closeMutex);
    if (!m_closed)
        m_worker->wake();
}

void UrlSession::cancelAll() {
    m_worker->cancelAll();
}

UrlTaskPtr UrlSession::start(const UrlRequest &request, Completion completion) {
    auto task = std::make_shared<UrlTask>();
    if (m_idleTimer)
        m_idleTimer->invalidate();
    const std::lock_guard lock(m_closeMutex);
    if (m_closed)
        return task;
    ++m_underWay;
    m_worker->enqueue({request, [this, alive = std::weak_ptr(m_alive), task,
                                 completion = std::move(completion)](UrlResponse response) {
                           MainQueue::post(
                               [this, alive, task, completion, response = std::move(response)] {
                                   if (alive.expired())
                                       return;
                                   task->m_running = false;
                                   taskEnded();
                                   completion(response);
                               });
                       }});
    return task;
}

void UrlSession::taskEnded() {
    if (--m_underWay == 0)
        m_idleTimer = Timer::scheduled(IdleSeconds, Timer::Kind::OneShot,
                                       [this] { m_worker->endWhenIdle(); });
}

std::optional<UrlResponse> UrlSession::fetch(const UrlRequest &request) {
    const auto pending = std::make_shared<PendingResponse>();
    {
        const std::lock_guard lock(m_closeMutex);
        if (m_closed || !QCoreApplication::instance())
            return {};
        // Destroyed with the job, which is dropped without an answer when the session ends first.
        const std::shared_ptr<void> dropped(nullptr, [pending](void *) { pending->finish({}); });
        m_worker->enqueue({request, [pending, dropped](UrlResponse response) {
                               pending->finish(std::move(response));
                           }});
    }
    std::unique_lock lock(pending->mutex);
    pending->arrived.wait(lock, [&] { return pending->isOver; });
    return pending->response;
}

} // namespace velmora
