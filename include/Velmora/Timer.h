// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <chrono>
#include <functional>
#include <memory>

namespace velmora {

/// A one-shot or repeating timer on the main loop. The loop keeps a scheduled timer alive until
/// it has fired (one-shot) or was invalidated; dropping every reference does not cancel it.
/// Main thread only.
class VELMORA_EXPORT Timer : public std::enable_shared_from_this<Timer> {
public:
    enum class Kind { OneShot, Repeating };
    using Duration = std::chrono::nanoseconds;

    /// Schedules a timer.
    /// @param seconds interval; zero or less fires a one-shot timer on the next turn of the loop
    ///                and a repeating one once a frame (60 times a second).
    static std::shared_ptr<Timer> scheduled(double seconds, Kind kind,
                                            std::function<void()> callback);

    /// Cancels the timer for good and lets go of its callback. Harmless when repeated.
    void invalidate();

    /// Cancels a timer and resets the pointer to it; null is ignored.
    static void cancel(std::shared_ptr<Timer> &timer);

    /// True until the timer is invalidated or, if one-shot, has fired.
    bool isValid() const { return m_valid; }

    /// True once setGodTimer() has seen the timer.
    bool firesDuringTracking() const { return m_tracking; }
    void setFiresDuringTracking() { m_tracking = true; }

    Duration interval() const { return m_interval; }
    Duration deadline() const { return m_deadline; }

    /// For the loop that owns the timer: runs the callback and moves the deadline on.
    void fire(Duration now);
    /// For the loop that owns the timer: the loop is going away.
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
