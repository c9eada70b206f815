// SPDX-License-Identifier: Apache-2.0
#include "SplashTimers.h"

#include <Velmora/Support.h>

#include <utility>

namespace velmora {

SplashTimers::~SplashTimers() {
    for (const auto &started : m_timers) {
        if (const TimerPtr timer = started.lock())
            timer->invalidate();
    }
}

TimerPtr SplashTimers::start(double seconds, Timer::Kind kind, std::function<void()> work) {
    std::erase_if(m_timers, [](const auto &started) {
        const TimerPtr timer = started.lock();
        return !timer || !timer->isValid();
    });
    const TimerPtr timer = Timer::scheduled(seconds, kind, std::move(work));
    setGodTimer(timer);
    m_timers.push_back(timer);
    return timer;
}

} // namespace velmora
