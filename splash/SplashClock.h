// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <functional>
#include <memory>

namespace velmora {

/// The clock of a splash-screen sequence: the seconds that it has run, which stand still while it
/// is paused, a tick a second, and the timers that end its phases. It knows neither windows nor
/// views. Main thread only.
///
/// A timer that is started anew does not cancel the one before it: both fire. Only the stop and
/// cancel operations cancel.
class SplashClock {
public:
    SplashClock() = default;
    /// From the start of the video to the close button, seconds.
    static constexpr qint64 VideoSeconds = 5;

    struct Handlers {
        /// Another second has been counted.
        std::function<void()> ticked;
        std::function<void()> videoDue;
        std::function<void()> closeButtonDue;
    };

    ~SplashClock();

    void setHandlers(Handlers handlers) { m_handlers = std::move(handlers); }

    /// A sequence begins: nothing has run and nothing has been counted.
    void begin();
    /// Adds the time since begin() or resume() to what has run.
    void pause();
    /// Counts what runs from now on. The timers are started by their own operations.
    void resume();
    /// Seconds that the sequence had run when it was last paused.
    double timeDuration() const;
    /// Seconds of running time from the last pause to a second of the sequence.
    double secondsTo(qint64 second) const;

    /// Seconds that the tick has counted.
    qint64 passedTime() const { return m_passedTime; }
    /// A countdown's text value: what is left of a number of seconds, never below 0.
    qint64 secondsLeftOf(qint64 seconds) const;

    void startTick();
    void stopTick();
    void tick();
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
    TimerPtr scheduled(double seconds, Timer::Kind kind, std::function<void()> work);

    Handlers m_handlers;
    /// When the running time since the last pause began.
    TimeSource::Duration m_startTimerDate{0};
    TimeSource::Duration m_timeDuration{0};
    qint64 m_passedTime = 0;
    TimerPtr m_tickTimer;
    TimerPtr m_resumeTickTimer;
    TimerPtr m_videoTimer;
    /// Expires with the clock, for timers that are still pending then.
    std::shared_ptr<int> m_alive = std::make_shared<int>();
};

} // namespace velmora
