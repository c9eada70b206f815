// SPDX-License-Identifier: Apache-2.0
#include "UrlSession.h"

#include "MainQueue.h"
#include "UrlSessionWorker.h"

#include <QtCore/QCoreApplication>

#include <future>
#include <utility>

namespace velmora {

namespace {
constexpr double IdleSeconds = 5;
}

UrlSession::UrlSession(Configuration configuration)
    : m_worker(new UrlSessionWorker(std::move(configuration))) {
    m_thread.setObjectName(QStringLiteral("velmora-network"));
    m_worker->moveToThread(&m_thread);
}

UrlSession::~UrlSession() {
    close();
    delete m_worker;
}

void UrlSession::close() {
    {
        const std::lock_guard lock(m_closeMutex);
        if (std::exchange(m_closed, true))
            return;
    }
    m_alive.reset();
    if (m_idleTimer)
        m_idleTimer->invalidate();
    if (m_thread.isRunning()) {
        m_worker->stop();
        m_thread.wait();
    }
}

void UrlSession::startThread() {
    if (!m_thread.isRunning() && QCoreApplication::instance())
        m_thread.start();
}

void UrlSession::wake() {
    const std::lock_guard lock(m_closeMutex);
    if (!m_closed && m_underWay > 0)
        startThread();
}

UrlTaskPtr UrlSession::start(const UrlRequest &request, Completion completion) {
    auto task = std::make_shared<UrlTask>();
    if (m_idleTimer)
        m_idleTimer->invalidate();
    ++m_underWay;
    const std::lock_guard lock(m_closeMutex);
    if (m_closed)
        return task;
    startThread();
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
                                       [this] { m_worker->closeIdleConnections(); });
}

std::optional<UrlResponse> UrlSession::fetch(const UrlRequest &request) {
    auto promise = std::make_shared<std::promise<UrlResponse>>();
    std::future<UrlResponse> answer = promise->get_future();
    {
        const std::lock_guard lock(m_closeMutex);
        if (m_closed || !QCoreApplication::instance())
            return {};
        startThread();
        m_worker->enqueue({request, [promise = std::move(promise)](UrlResponse response) {
                               promise->set_value(std::move(response));
                           }});
    }
    try {
        return answer.get();
    } catch (const std::future_error &) {
        // close() has destroyed the promise with the request.
        return {};
    }
}

} // namespace velmora
