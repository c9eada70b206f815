// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>

namespace velmora {

class Timer;

/// Tells the time and fires the timers. The default is SystemTimeSource; a test replaces it by
/// virtual time before it makes the first timer. Main thread only.
class TimeSource {
public:
    using Duration = std::chrono::nanoseconds;

    virtual ~TimeSource() = default;

    /// Monotonic time since an arbitrary start.
    virtual Duration now() const = 0;

    /// Schedules a timer: holds a reference to it and calls its fire() at its deadlines, until it
    /// is invalid.
    virtual void add(const std::shared_ptr<Timer> &timer) = 0;

    /// Drops an invalidated timer from the schedule. Ignored for an unknown timer.
    virtual void remove(Timer *timer) = 0;

    static TimeSource &current();

    /// For tests: replaces the source; null restores the default. The caller keeps ownership.
    static void setCurrent(TimeSource *source);
};

} // namespace velmora
