// SPDX-License-Identifier: Apache-2.0
#include "ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

namespace velmora {

namespace {

struct Entry {
    std::type_index type;
    std::shared_ptr<void> object;
};

// Recursive, because an object may ask for another while it is being made or destroyed.
std::recursive_mutex &rootMutex() {
    static auto &mutex = *new std::recursive_mutex;
    return mutex;
}

// Neither is ever destroyed: who comes last still finds them.
std::vector<Entry> &entries() {
    static auto &list = *new std::vector<Entry>;
    return list;
}

} // namespace

std::shared_ptr<void> ProcessRoot::find(std::type_index type, Factory factory) {
    const std::lock_guard lock(rootMutex());
    for (const Entry &entry : entries()) {
        if (entry.type == type)
            return entry.object;
    }
    if (!factory)
        return nullptr;
    // The application object forgets its routines when it has run them.
    if (entries().empty())
        qAddPostRoutine(&ProcessRoot::drop);
    std::shared_ptr<void> object = factory();
    entries().push_back({type, object});
    return object;
}

void ProcessRoot::dropAtExit() {
    std::atexit([] {
        // exit() on a worker leaves the main thread running: it may use anything still.
        const QCoreApplication *app = QCoreApplication::instance();
        if (!app || QThread::currentThread() == app->thread())
            drop();
    });
}

bool ProcessRoot::isUsable() {
    return QCoreApplication::instance() && !QCoreApplication::closingDown();
}

void ProcessRoot::drop() {
    for (;;) {
        std::shared_ptr<void> last;
        {
            const std::lock_guard lock(rootMutex());
            if (entries().empty())
                return;
            last = std::move(entries().back().object);
            entries().pop_back();
        }
        // Destroyed outside the lock: a destructor may wait for a thread that asks for the root.
        last.reset();
    }
}

} // namespace velmora
