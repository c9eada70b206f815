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
    std::condition_variable wake;
    std::deque<std::function<void()>> pending;
    bool hasThread = false;
    bool isWorking = false;
    bool isEnding = false;

    // Runs what is queued until nothing is left and nothing more comes for some time.
    void loop(std::chrono::milliseconds keepAlive) {
        std::unique_lock lock(mutex);
        do {
            while (!pending.empty()) {
                isWorking = true;
                std::function<void()> work = std::move(pending.front());
                pending.pop_front();
                lock.unlock();
                work();
                work = nullptr;
                lock.lock();
            }
            isWorking = false;
            idle.notify_all();
        } while (wake.wait_for(lock, keepAlive, [this] { return !pending.empty() || isEnding; }) &&
                 !pending.empty());
        hasThread = false;
    }

    bool isBusy() const { return isWorking || !pending.empty(); }

    void end() {
        const std::lock_guard lock(mutex);
        isEnding = true;
        wake.notify_all();
    }
};

SerialQueue::SerialQueue(const char *threadName, AtEnd atEnd, std::chrono::milliseconds keepAlive)
    : m_threadName(threadName),
      m_atEnd(atEnd),
      m_keepAlive(keepAlive),
      m_state(std::make_shared<State>()) {}

SerialQueue::~SerialQueue() {
    atExit();
    std::unique_lock lock(m_state->mutex);
    m_state->idle.wait(lock, [this] { return !m_state->isBusy(); });
}

// The thread is waited for in any case, a second at most (AtExit::Waits).
void SerialQueue::atExit() {
    if (m_atEnd == AtEnd::Drops)
        dropPending();
    m_state->end();
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
        m_state->wake.notify_one();
        if (std::exchange(m_state->hasThread, true))
            return;
    }
    const auto loop = [state = m_state, keepAlive = m_keepAlive] { state->loop(keepAlive); };
    if (!startBackgroundThread(m_threadName, AtExit::Waits, loop, nullptr))
        m_state->loop({});
}

bool SerialQueue::drain(std::chrono::milliseconds longest) {
    std::unique_lock lock(m_state->mutex);
    return m_state->idle.wait_for(lock, longest, [this] { return !m_state->isBusy(); });
}

} // namespace velmora
