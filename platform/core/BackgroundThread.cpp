// SPDX-License-Identifier: Apache-2.0
#include "BackgroundThread.h"

#include <pthread.h>
#include <signal.h>

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

} // namespace

bool startBackgroundThread(const char *name, std::function<void()> work, QString *error) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    // A new thread inherits the signal mask of the thread that starts it.
    pthread_sigmask(SIG_SETMASK, &all, &before);
    bool started = true;
    try {
        std::thread([name, work = std::move(work)] {
            nameThisThread(name);
            work();
        }).detach();
    } catch (const std::system_error &refusal) {
        started = false;
        if (error)
            *error = QString::fromLocal8Bit(refusal.what());
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

} // namespace velmora
