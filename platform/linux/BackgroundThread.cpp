#include "platform/linux/BackgroundThread.h"

#include <pthread.h>
#include <signal.h>

#include <system_error>
#include <thread>

namespace velmora {

bool startBackgroundThread(const char *name, std::function<void()> work, QString *error) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before); // inherited by the new thread
    bool started = true;
    try {
        std::thread thread(std::move(work));
        pthread_setname_np(thread.native_handle(), name);
        thread.detach();
    } catch (const std::system_error &refusal) {
        started = false;
        if (error)
            *error = QString::fromLocal8Bit(refusal.what());
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return started;
}

} // namespace velmora
