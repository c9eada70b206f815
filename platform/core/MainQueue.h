// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace velmora {

/// Work posted to the main thread's event loop, run there one piece a turn in posting order.
class MainQueue {
public:
    /// Runs work on a later turn of the main loop. Any thread. Dropped when the process's
    /// application object has gone, or when the process state is dropped first.
    static void post(std::function<void()> work);

    /// True on the thread of the application object.
    static bool isMainThread();

    /// Runs work at once on the main thread, posts it from any other.
    static void runOrPost(std::function<void()> work);
};

} // namespace velmora
