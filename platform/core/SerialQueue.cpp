// SPDX-License-Identifier: Apache-2.0
#include "SerialQueue.h"

#include <utility>

namespace velmora {

SerialQueue::~SerialQueue() {
    if (m_thread.joinable())
        m_thread.join();
}

void SerialQueue::run(std::function<void()> work) {
    const std::lock_guard lock(m_mutex);
    m_pending.push_back(std::move(work));
    if (m_running)
        return;
    // The thread before this one has nothing left to do but return.
    if (m_thread.joinable())
        m_thread.join();
    m_running = true;
    m_thread = std::thread([this] { loop(); });
}

bool SerialQueue::drain(std::chrono::milliseconds longest) {
    std::unique_lock lock(m_mutex);
    return m_idle.wait_for(lock, longest, [this] { return !m_running; });
}

void SerialQueue::loop() {
    std::unique_lock lock(m_mutex);
    while (!m_pending.empty()) {
        std::function<void()> work = std::move(m_pending.front());
        m_pending.pop_front();
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
    }
    m_running = false;
    m_idle.notify_all();
}

} // namespace velmora
