// SPDX-License-Identifier: Apache-2.0
#include "SerialQueue.h"

#include "BackgroundThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace velmora {

struct SerialQueue::State {
    std::mutex mutex;
    std::condition_variable idle;
    std::deque<std::function<void()>> pending;
    bool isRunning = false;

    // Runs what is queued until nothing is left.
    void loop() {
        std::unique_lock lock(mutex);
        while (!pending.empty()) {
            std::function<void()> work = std::move(pending.front());
            pending.pop_front();
            lock.unlock();
            work();
            work = nullptr;
            lock.lock();
        }
        isRunning = false;
        idle.notify_all();
    }
};

SerialQueue::SerialQueue(const char *threadName, AtEnd atEnd)
    : m_threadName(threadName), m_atEnd(atEnd), m_state(std::make_shared<State>()) {}

SerialQueue::~SerialQueue() {
    if (m_atEnd == AtEnd::Drops)
        dropPending();
    std::unique_lock lock(m_state->mutex);
    m_state->idle.wait(lock, [this] { return !m_state->isRunning; });
}

// The thread is waited for in any case, a second at most (AtExit::Waits).
void SerialQueue::atExit() {
    if (m_atEnd == AtEnd::Drops)
        dropPending();
}

void SerialQueue::dropPending() {
    std::deque<std::function<void()>> dropped; // destroyed after the lock
    const std::lock_guard lock(m_state->mutex);
    dropped.swap(m_state->pending);
}

void SerialQueue::run(std::function<void()> work) {
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->pending.push_back(std::move(work));
        if (std::exchange(m_state->isRunning, true))
            return;
    }
    if (!startBackgroundThread(
            m_threadName, AtExit::Waits, [state = m_state] { state->loop(); }, nullptr))
        m_state->loop();
}

bool SerialQueue::drain(std::chrono::milliseconds longest) {
    std::unique_lock lock(m_state->mutex);
    return m_state->idle.wait_for(lock, longest, [this] { return !m_state->isRunning; });
}

} // namespace velmora
