// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <chrono>
#include <functional>
#include <memory>

namespace velmora {

/// A one-shot or repeating timer that fires in the main thread's event loop. A scheduled timer
/// keeps itself alive until it has fired (one-shot) or was invalidated; destroying all pointers to
/// it does not cancel it. Main thread only.
class VELMORA_EXPORT Timer : public std::enable_shared_from_this<Timer> {
public:
    enum class Kind {
        OneShot,  ///< fires once and is then invalid
        Repeating ///< fires at every multiple of the interval; missed ones are not made up for
    };
    using Duration = std::chrono::nanoseconds;

    /// Makes a timer and schedules it.
    /// @param seconds  the interval, at most ten years. With zero, a negative value or NaN, a timer
    ///                 fires on the next turn of the event loop, a repeating one 60 times a second
    /// @param callback called each time that the timer fires
    static std::shared_ptr<Timer> scheduled(double seconds, Kind kind,
                                            std::function<void()> callback);

    /// Cancels the timer for good and destroys its callback. Ignored the second time.
    void invalidate();

    /// Invalidates a timer and resets the pointer to it. Null is ignored.
    static void cancel(std::shared_ptr<Timer> &timer);

    /// True until the timer is invalidated or, if it is one-shot, fires.
    bool isValid() const { return m_valid; }

    /// True when setGodTimer() was called for the timer.
    bool firesDuringTracking() const { return m_tracking; }
    /// What setGodTimer() does.
    void setFiresDuringTracking() { m_tracking = true; }

    /// The time between two firings, or from scheduled() to the only one.
    Duration interval() const { return m_interval; }
    /// When the timer fires next, as the time since an arbitrary start of a monotonic clock.
    Duration deadline() const { return m_deadline; }

    /// For the framework's event loop only: calls the callback and sets the next deadline.
    void fire(Duration now);
    /// For the framework's event loop only, when that is destroyed: makes the timer invalid.
    void sourceGone() { m_valid = false; }

private:
    Timer(Duration interval, Kind kind, std::function<void()> callback);

    Duration m_interval;
    Duration m_deadline{0};
    Kind m_kind;
    bool m_valid = true;
    bool m_tracking = false;
    std::function<void()> m_callback;
};

using TimerPtr = std::shared_ptr<Timer>;

} // namespace velmora
