#include "platform/ProcessRoot.h"

#include <QtCore/QCoreApplication>

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
    static std::recursive_mutex mutex;
    return mutex;
}

std::vector<Entry> &entries() {
    static std::vector<Entry> list;
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
    static const bool registered = [] {
        qAddPostRoutine(&ProcessRoot::drop);
        return true;
    }();
    Q_UNUSED(registered)
    std::shared_ptr<void> object = factory();
    entries().push_back({type, object});
    return object;
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
