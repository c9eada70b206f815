#include "platform/SerialQueue.h"

#include <utility>

namespace velmora {

SerialQueue::~SerialQueue() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void SerialQueue::run(std::function<void()> work) {
    {
        const std::lock_guard lock(m_mutex);
        m_pending.push_back(std::move(work));
        if (!m_thread.joinable())
            m_thread = std::thread([this] { loop(); });
    }
    m_changed.notify_all();
}

bool SerialQueue::drain(std::chrono::milliseconds longest) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, longest, [this] { return m_pending.empty() && !m_busy; });
}

void SerialQueue::loop() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_stopping || !m_pending.empty(); });
        if (m_pending.empty())
            return;
        std::function<void()> work = std::move(m_pending.front());
        m_pending.pop_front();
        m_busy = true;
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}

} // namespace velmora
