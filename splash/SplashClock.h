// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashTimers.h"
#include "TimeSource.h"

#include <functional>

namespace velmora {

/// The clock of a splash-screen sequence: the seconds that it has run without its pauses, a tick
/// every second, and the timers that end its phases. It knows neither windows nor views. Main
/// thread only.
///
/// Starting a timer does not cancel the one that was started before it by the same operation: both
/// fire. Only the stop and cancel operations cancel.
class SplashClock {
public:
    /// From the start of the video to the close button, seconds.
    static constexpr qint64 VideoSeconds = 5;

    struct Handlers {
        /// Called when another second has been counted.
        std::function<void()> ticked;
        std::function<void()> videoDue;
        std::function<void()> closeButtonDue;
    };

    void setHandlers(Handlers handlers) { m_handlers = std::move(handlers); }

    /// A sequence begins: nothing has run and nothing has been counted.
    void begin();
    /// Adds the time since begin() or resume() to the running time.
    void pause();
    /// Running time goes on from now. Starts no timer.
    void resume();
    /// Seconds that the sequence had run when it was last paused.
    double timeDuration() const;
    /// How many seconds of running time were left, at the last pause, until the sequence had run
    /// for so many seconds.
    double secondsTo(qint64 second) const;

    /// Seconds that the tick has counted since begin().
    qint64 passedTime() const { return m_passedTime; }
    /// What a countdown from so many seconds shows: how many of them are left, never below 0.
    qint64 secondsLeftOf(qint64 seconds) const;

    void startTick();
    void stopTick();
    void tick();
    /// Ticks now and every second from now on.
    void tickAtOnceAndOn();
    /// Ticks at the next whole second of running time, and every second from then on.
    void resumeTick();
    void cancelResumeTick();

    void startVideoAfter(double seconds);
    void startCloseButtonAfter(double seconds);
    /// Cancels whichever of the two was started last.
    void stopPhaseTimer();
    bool isPhaseTimerPending() const { return m_videoTimer != nullptr; }

    const TimerPtr &tickTimer() const { return m_tickTimer; }
    const TimerPtr &resumeTickTimer() const { return m_resumeTickTimer; }
    const TimerPtr &videoTimer() const { return m_videoTimer; }

private:
    Handlers m_handlers;
    /// When the running time since the last pause began.
    TimeSource::Duration m_startTimerDate{0};
    TimeSource::Duration m_timeDuration{0};
    qint64 m_passedTime = 0;
    TimerPtr m_tickTimer;
    TimerPtr m_resumeTickTimer;
    /// The timer of the phase: until the video, and then until the close button.
    TimerPtr m_videoTimer;
    SplashTimers m_timers;
};

} // namespace velmora
