// SPDX-License-Identifier: Apache-2.0
#include "SplashWaitingPeriod.h"

namespace velmora {

TimerPtr SplashWaitingPeriod::scheduled(qint64 seconds) {
    return m_timers.start(double(seconds), Timer::Kind::OneShot, [this] { end(); });
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
