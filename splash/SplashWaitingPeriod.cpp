// SPDX-License-Identifier: Apache-2.0
#include "SplashWaitingPeriod.h"

#include <Velmora/Support.h>

namespace velmora {

TimerPtr SplashWaitingPeriod::scheduled(qint64 seconds) {
    const TimerPtr timer = Timer::scheduled(double(seconds), Timer::Kind::OneShot,
                                            [this, alive = std::weak_ptr(m_alive)] {
                                                if (!alive.expired())
                                                    end();
                                            });
    setGodTimer(timer);
    return timer;
}

void SplashWaitingPeriod::startFirst() {
    m_firstStartTimer = scheduled(m_delayForFirstStart);
}

void SplashWaitingPeriod::start() {
    m_prepareTimer = scheduled(m_waitTime);
}

void SplashWaitingPeriod::end() {
    Timer::cancel(m_prepareTimer);
    m_isOver = true;
}

void SplashWaitingPeriod::restart() {
    Timer::cancel(m_prepareTimer);
    m_isOver = false;
    start();
}

void SplashWaitingPeriod::cancel() {
    for (const TimerPtr &timer : {m_firstStartTimer, m_prepareTimer}) {
        if (timer)
            timer->invalidate();
    }
}

} // namespace velmora
