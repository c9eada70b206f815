#include "platform/UrlSession.h"

#include "platform/MainQueue.h"
#include "platform/UrlSessionWorker.h"

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
    if (m_idleTimer)
        m_idleTimer->invalidate();
    if (m_thread.isRunning()) {
        m_worker->stop();
        m_thread.wait();
    }
    delete m_worker;
}

UrlTaskPtr UrlSession::start(const UrlRequest &request, Completion completion) {
    auto task = std::make_shared<UrlTask>();
    if (m_idleTimer)
        m_idleTimer->invalidate();
    ++m_underWay;
    ensureRunning();
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
        m_idleTimer =
            Timer::scheduled(IdleSeconds, Timer::Kind::OneShot, [this] { m_worker->rest(); });
}

std::optional<UrlResponse> UrlSession::fetch(const UrlRequest &request) {
    auto promise = std::make_shared<std::promise<UrlResponse>>();
    std::future<UrlResponse> answer = promise->get_future();
    ensureRunning();
    m_worker->enqueue({request, [promise = std::move(promise)](UrlResponse response) {
                           promise->set_value(std::move(response));
                       }});
    try {
        return answer.get();
    } catch (const std::future_error &) {
        // The session went away and took the promise with it.
        return {};
    }
}

void UrlSession::ensureRunning() {
    std::call_once(m_started, [this] { m_thread.start(); });
}

} // namespace velmora
