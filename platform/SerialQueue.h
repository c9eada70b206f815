#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace velmora {

/// One worker thread that runs pieces of work in order. The thread starts with the first piece
/// and sleeps without waking while there is none. The destructor finishes what is queued.
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
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_pending;
    bool m_busy = false;
    bool m_stopping = false;
    std::thread m_thread;
};

/// The process's queue for writing files, so that no disk is waited for on the main thread.
class DiskQueue : public SerialQueue {};

} // namespace velmora
