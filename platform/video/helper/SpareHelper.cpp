// SPDX-License-Identifier: Apache-2.0
#include "SpareHelper.h"

#include "BackgroundThread.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace velmora {

namespace {

using namespace std::chrono_literals;

constexpr auto LongestKept = 60s;

struct Spare {
    std::mutex mutex;
    std::condition_variable changed;
    std::unique_ptr<HelperProcess> process;

    static Spare &instance() {
        // Not in ProcessRoot, and never destroyed: the thread that waits for its time uses it until
        // the process ends.
        static auto *spare = new Spare;
        return *spare;
    }

    // A process that waits has nothing to say, unless it has ended.
    std::unique_ptr<HelperProcess> take() {
        std::unique_ptr<HelperProcess> taken;
        {
            const std::lock_guard lock(mutex);
            taken = std::move(process);
        }
        changed.notify_all();
        return taken && !taken->channel()->waitForMessage(0ms) ? std::move(taken) : nullptr;
    }

    void endWhenNotTaken() {
        std::unique_ptr<HelperProcess> forgotten;
        std::unique_lock lock(mutex);
        if (!changed.wait_for(lock, LongestKept, [this] { return !process; }))
            forgotten = std::move(process);
    }
};

} // namespace

bool SpareHelper::prepare() {
    Spare &spare = Spare::instance();
    const std::lock_guard lock(spare.mutex);
    if (spare.process)
        return true;
    HelperStart start = HelperProcess::start();
    if (start.process &&
        startBackgroundThread(
            "velmora-spare", AtExit::Ignores, [&spare] { spare.endWhenNotTaken(); }, nullptr))
        spare.process = std::move(start.process);
    return !start.isImpossible;
}

HelperStart SpareHelper::takeOrStart() {
    if (auto taken = Spare::instance().take())
        return {std::move(taken), {}, false};
    return HelperProcess::start();
}

} // namespace velmora
