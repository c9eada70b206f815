// SPDX-License-Identifier: Apache-2.0
#include "ProcessRoot.h"

#include "BackgroundThread.h"
#include "MainQueue.h"

#include <QtCore/QCoreApplication>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

namespace velmora {

namespace {

struct Entry {
    std::type_index type;
    std::shared_ptr<void> object;
    void (*atExit)(void *object);
};

// The main thread may be waiting for the thread that called exit().
constexpr std::chrono::milliseconds LongestTurn{100};

std::atomic<bool> s_hasEnded = false;
std::atomic<pid_t> s_process = 0;

// Recursive, because an object may ask for another while it is constructed. Neither this mutex nor
// the list is ever destroyed: atexit handlers and worker threads use them until the process ends.
std::recursive_mutex &rootMutex() {
    static auto &mutex = *new std::recursive_mutex;
    return mutex;
}

std::vector<Entry> &entries() {
    static auto &list = *new std::vector<Entry>;
    return list;
}

} // namespace

std::shared_ptr<void> ProcessRoot::find(std::type_index type, Factory factory, ExitHandler atExit) {
    const std::lock_guard lock(rootMutex());
    for (const Entry &entry : entries()) {
        if (entry.type == type)
            return entry.object;
    }
    if (!factory)
        return nullptr;
    // Once a program, since it cannot be undone.
    [[maybe_unused]] static const bool registered = (registerAtExit(), true);
    // Qt runs a post routine once and forgets it. So this registers drop() again for every process
    // state, that is whenever the first object of one is made.
    if (entries().empty())
        qAddPostRoutine(&ProcessRoot::drop);
    std::shared_ptr<void> object = factory();
    entries().push_back({type, object, atExit});
    return object;
}

void ProcessRoot::registerAtExit() {
    s_process = getpid();
    std::atexit(&ProcessRoot::exitBegins);
}

bool ProcessRoot::isForkedChild() {
    return getpid() != s_process;
}

void ProcessRoot::exitBegins() {
    // A child of fork() has none of the threads and would wait for them for ever.
    if (s_hasEnded.exchange(true) || isForkedChild())
        return;
    std::vector<Entry> objects;
    {
        const std::lock_guard lock(rootMutex());
        objects = entries();
    }
    // Without the lock, because a thread that is ending may be calling find().
    for (auto entry = objects.rbegin(); entry != objects.rend(); ++entry) {
        if (entry->atExit)
            entry->atExit(entry->object.get());
    }
    // The main thread may be painting, which it must not once Qt is taken down. It has no reason to
    // begin again, since no timer of the framework fires any more.
    if (!MainQueue::isMainThread())
        MainQueue::waitForPendingEvents(LongestTurn);
    waitForBackgroundThreads();
}

bool ProcessRoot::isUsable() {
    return !s_hasEnded && QCoreApplication::instance() && !QCoreApplication::closingDown();
}

bool ProcessRoot::hasEnded() {
    return s_hasEnded;
}

void ProcessRoot::drop() {
    while (!s_hasEnded) {
        std::shared_ptr<void> last;
        {
            const std::lock_guard lock(rootMutex());
            if (entries().empty())
                return;
            last = std::move(entries().back().object);
            entries().pop_back();
        }
        // Destroyed without the lock, because a destructor may wait for a thread that is calling
        // find() at this moment.
        last.reset();
    }
}

} // namespace velmora
