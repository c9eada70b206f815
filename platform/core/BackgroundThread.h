// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <functional>

namespace velmora {

/// What the end of the process does about a thread.
enum class AtExit {
    Waits,  ///< exit() waits until it has ended, a second at most; for work that can be told to end
    Ignores ///< the process may end at any moment of it; for calls that nothing can interrupt
};

/// Runs work on a new thread. The framework starts all its threads here.
///
/// The caller cannot join the thread, so the work must own, or share, everything it uses. All
/// signals are blocked on it, so that the host's signal handlers never run there. Any thread may
/// call this.
/// @param name   the thread's name in debuggers and system tools, at most 15 characters; a literal
/// @param atExit a thread that is ignored must not use Qt once ProcessRoot::hasEnded()
/// @param error  receives the system's reason when there is no thread; may be null
/// @return false when the system gives no thread; the work is then destroyed without being run
bool startBackgroundThread(const char *name, AtExit atExit, std::function<void()> work,
                           QString *error);

/// Waits for the threads that are not ignored, a second at most. For the end of the process.
void waitForBackgroundThreads();

} // namespace velmora
