// SPDX-License-Identifier: Apache-2.0
#include "BackgroundThread.h"

#include <pthread.h>
#include <signal.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

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

// The number of threads that exit() waits for. Never destroyed: they use it to their very end.
struct Awaited {
    std::mutex mutex;
    std::condition_variable changed;
    int count = 0;

    static Awaited &threads() {
        static Awaited &instance = *new Awaited;
        return instance;
    }

    void add(int difference) {
        const std::lock_guard lock(mutex);
        count += difference;
        changed.notify_all();
    }
};

} // namespace

bool startBackgroundThread(const char *name, AtExit atExit, std::function<void()> work,
                           QString *error) {
    const int awaited = atExit == AtExit::Waits ? 1 : 0;
    Awaited::threads().add(awaited);
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    // A new thread inherits the signal mask of the thread that starts it.
    pthread_sigmask(SIG_SETMASK, &all, &before);
    bool started = true;
    try {
        std::thread([name, awaited, work = std::move(work)]() mutable {
            nameThisThread(name);
            work();
            work = nullptr; // destroys what it owns while exit() still waits
            Awaited::threads().add(-awaited);
        }).detach();
    } catch (const std::system_error &refusal) {
        started = false;
        Awaited::threads().add(-awaited);
        if (error)
            *error = QString::fromLocal8Bit(refusal.what());
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

void waitForBackgroundThreads() {
    Awaited &threads = Awaited::threads();
    std::unique_lock lock(threads.mutex);
    threads.changed.wait_for(lock, LongestWait, [&threads] { return threads.count == 0; });
}

} // namespace velmora
