// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashTimers.h"

namespace velmora {

/// The wait before the first splash-screen sequence and between two of them. While it lasts, the
/// presenter refuses show requests that are not forced. Main thread only.
///
/// Starting a timer does not cancel the one that was started before it: whichever fires first ends
/// the wait.
class SplashWaitingPeriod {
public:
    bool isOver() const { return m_isOver; }
    /// A sequence begins: the next one has to wait.
    void setNotOver() { m_isOver = false; }

    /// From the registration of the first window to the first sequence, whole seconds.
    qint64 delayForFirstStart() const { return m_delayForFirstStart; }
    void setDelayForFirstStart(qint64 seconds) { m_delayForFirstStart = seconds; }
    /// From the end of one sequence to the next, whole seconds.
    qint64 waitTime() const { return m_waitTime; }
    void setWaitTime(qint64 seconds) { m_waitTime = seconds; }

    /// Starts the timer of delayForFirstStart().
    void startFirst();
    /// Starts the timer of waitTime().
    void start();
    /// Ends the wait now. What both timers do.
    void end();
    /// Starts the wait again, for all of waitTime().
    void restart();
    /// Cancels both timers. The wait then lasts until end() or restart().
    void cancel();

    const TimerPtr &firstStartTimer() const { return m_firstStartTimer; }
    const TimerPtr &prepareTimer() const { return m_prepareTimer; }

private:
    TimerPtr scheduled(qint64 seconds);

    bool m_isOver = false;
    qint64 m_delayForFirstStart = 0;
    qint64 m_waitTime = 120;
    TimerPtr m_firstStartTimer;
    TimerPtr m_prepareTimer;
    SplashTimers m_timers;
};

} // namespace velmora
