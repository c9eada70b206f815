// SPDX-License-Identifier: Apache-2.0
#include "BackgroundThread.h"

#include <pthread.h>
#include <signal.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace velmora {

namespace {

void nameThisThread(const char *name) {
#ifdef __APPLE__
    pthread_setname_np(name);
#else
    pthread_setname_np(pthread_self(), name);
#endif
}

constexpr auto LongestWait = std::chrono::seconds(1);

// The threads that exit() waits for, until they are gone: libraries free what they keep for a
// thread only after its function has returned, and the handlers of exit() must not overtake that.
class AwaitedThreads {
public:
    // Never destroyed: the threads use it to their very end.
    static AwaitedThreads &instance() {
        static AwaitedThreads &threads = *new AwaitedThreads;
        return threads;
    }

    void start(std::function<void()> function) {
        const std::lock_guard lock(m_mutex);
        std::thread thread(std::move(function));
        const std::thread::id id = thread.get_id();
        m_running.emplace(id, std::move(thread));
    }

    /// The last that a thread calls. Each joins the one before it, so that only one is left to
    /// join.
    void thisThreadEnds() {
        std::unique_lock lock(m_mutex);
        const auto self = m_running.find(std::this_thread::get_id());
        std::thread before = std::exchange(m_ended, std::move(self->second));
        lock.unlock();
        if (before.joinable())
            before.join();
        lock.lock();
        m_running.erase(self);
        m_changed.notify_all();
    }

    void wait() {
        std::unique_lock lock(m_mutex);
        const bool allEnded =
            m_changed.wait_for(lock, LongestWait, [this] { return m_running.empty(); });
        if (allEnded && m_ended.joinable())
            m_ended.join();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::thread::id, std::thread> m_running;
    std::thread m_ended;
};

void startThread(AtExit atExit, std::function<void()> function) {
    if (atExit == AtExit::Ignores)
        std::thread(std::move(function)).detach();
    else
        AwaitedThreads::instance().start(std::move(function));
}

} // namespace

bool startBackgroundThread(const char *name, AtExit atExit, std::function<void()> work,
                           QString *error) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    // A new thread inherits the signal mask of the thread that starts it.
    pthread_sigmask(SIG_SETMASK, &all, &before);
    bool started = true;
    try {
        startThread(atExit, [name, atExit, work = std::move(work)]() mutable {
            nameThisThread(name);
            work();
            work = nullptr; // destroys what it owns while exit() still waits
            if (atExit == AtExit::Waits)
                AwaitedThreads::instance().thisThreadEnds();
        });
    } catch (const std::system_error &refusal) {
        started = false;
        if (error)
            *error = QString::fromLocal8Bit(refusal.what());
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

void waitForBackgroundThreads() {
    AwaitedThreads::instance().wait();
}

} // namespace velmora
