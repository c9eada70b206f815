// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>

class QObject;

namespace velmora {

/// Runs work on a later turn of the main thread's event loop, in the order in which it was posted.
/// The framework uses this for all deferred work on the main thread, instead of
/// QMetaObject::invokeMethod() with a queued connection, so that there is one order and one rule
/// for when work is dropped.
class MainQueue {
public:
    /// Posts work. Any thread. The work is destroyed without being run when there is no application
    /// object, and when the process state is dropped first (ProcessRoot::drop()).
    static void post(std::function<void()> work);

    /// Posts work that is also dropped when an object is destroyed before. Main thread only,
    /// because another thread could not tell whether the object still exists.
    /// @param context the object that the work uses; not null
    static void post(QObject *context, std::function<void()> work);

    /// True on the main thread: the thread of the application object. The answer stays the same
    /// after that object has been destroyed. As long as no thread has asked while it existed, the
    /// thread that loaded the library counts as the main thread. Any thread.
    static bool isMainThread();

    /// Waits until the main thread has handled the events that are pending. Any other thread.
    static void waitForPendingEvents(std::chrono::milliseconds longest);

    /// Runs work now when called on the main thread, and posts it on any other.
    static void runOrPost(std::function<void()> work);
};

} // namespace velmora
