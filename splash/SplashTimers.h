// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Timer.h>

#include <functional>
#include <memory>
#include <vector>

namespace velmora {

/// Starts the timers of one object, and cancels all that are pending when it is destroyed: also
/// those whose pointer the object has replaced by that of a later one. Main thread only.
class SplashTimers {
public:
    SplashTimers() = default;
    ~SplashTimers();
    SplashTimers(const SplashTimers &) = delete;
    SplashTimers &operator=(const SplashTimers &) = delete;

    TimerPtr start(double seconds, Timer::Kind kind, std::function<void()> work);

private:
    std::vector<std::weak_ptr<Timer>> m_timers;
};

} // namespace velmora
