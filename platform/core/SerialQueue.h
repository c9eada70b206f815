// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace velmora {

/// Runs pieces of work in order on a worker thread, which is there only while there is work. The
/// destructor finishes what is queued.
class SerialQueue {
public:
    SerialQueue() = default;
    ~SerialQueue();
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    /// Queues a piece of work. Any thread.
    void run(std::function<void()> work);

    /// Waits until everything queued so far is done; false when that took longer than given.
    bool drain(std::chrono::milliseconds longest);

private:
    void loop();

    std::mutex m_mutex;
    std::condition_variable m_idle;
    std::deque<std::function<void()>> m_pending;
    bool m_running = false;
    std::thread m_thread;
};

/// The process's queue for writing files, so that no disk is waited for on the main thread.
class DiskQueue : public SerialQueue {};

} // namespace velmora
