// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>

namespace velmora {

class Timer;

/// Where time comes from and who fires the timers. The process runs on the system's steady
/// clock unless another source is put in its place, before the first timer is made.
/// Main thread only.
class TimeSource {
public:
    using Duration = std::chrono::nanoseconds;

    virtual ~TimeSource() = default;

    /// Time since an arbitrary start; never goes backwards.
    virtual Duration now() const = 0;

    /// Keeps the timer alive and fires it at its deadlines until it is invalid.
    virtual void add(const std::shared_ptr<Timer> &timer) = 0;

    /// The timer was invalidated: forget it.
    virtual void remove(Timer *timer) = 0;

    static TimeSource &current();

    /// Replaces the source; null goes back to the system's clock. The caller keeps ownership.
    static void setCurrent(TimeSource *source);
};

} // namespace velmora
