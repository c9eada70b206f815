// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace velmora {

/// Runs pieces of work one after the other on a worker thread. The thread is started for the first
/// piece and ends when no work has come for some time.
class SerialQueue {
public:
    /// What the end of the queue, and that of the process, does about work that is queued.
    enum class AtEnd {
        Finishes, ///< waits until all of it is done
        Drops     ///< waits for what is being done, and starts no more of it
    };

    /// @param threadName see startBackgroundThread()
    /// @param keepAlive  how long the thread waits for more work before it ends
    explicit SerialQueue(const char *threadName, AtEnd atEnd = AtEnd::Finishes,
                         std::chrono::milliseconds keepAlive = {});
    ~SerialQueue();
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    /// Queues a piece of work. Any thread. When the system gives no thread, the work is done before
    /// this returns.
    void run(std::function<void()> work);

    /// Waits until all queued work is done. Any thread but the worker's.
    /// @return false when that took longer than the given time
    bool drain(std::chrono::milliseconds longest);

    /// See ProcessRoot.
    void atExit();

private:
    struct State;

    void dropPending();

    const char *const m_threadName;
    const AtEnd m_atEnd;
    const std::chrono::milliseconds m_keepAlive;
    // Shared with the thread, which may still be returning when the queue is destroyed.
    const std::shared_ptr<State> m_state;
};

/// The process's queue for writing files, so that the main thread never waits for a disk.
class DiskQueue : public SerialQueue {
public:
    DiskQueue() : SerialQueue("velmora-disk") {}
};

} // namespace velmora
