// SPDX-License-Identifier: Apache-2.0
#include "SplashClock.h"

#include <algorithm>
#include <utility>

namespace velmora {

void SplashClock::begin() {
    m_startTimerDate = TimeSource::current().now();
    m_timeDuration = TimeSource::Duration::zero();
    m_passedTime = 0;
}

void SplashClock::pause() {
    m_timeDuration += TimeSource::current().now() - m_startTimerDate;
}

void SplashClock::resume() {
    m_startTimerDate = TimeSource::current().now();
}

double SplashClock::timeDuration() const {
    return std::chrono::duration<double>(m_timeDuration).count();
}

double SplashClock::secondsTo(qint64 second) const {
    return std::chrono::duration<double>(std::chrono::seconds(second) - m_timeDuration).count();
}

qint64 SplashClock::secondsLeftOf(qint64 seconds) const {
    return std::max<qint64>(seconds - m_passedTime, 0);
}

void SplashClock::startTick() {
    m_tickTimer = m_timers.start(1, Timer::Kind::Repeating, [this] { tick(); });
}

void SplashClock::stopTick() {
    Timer::cancel(m_tickTimer);
}

void SplashClock::tick() {
    ++m_passedTime;
    m_handlers.ticked();
}

void SplashClock::tickAtOnceAndOn() {
    startTick();
    tick();
}

void SplashClock::resumeTick() {
    cancelResumeTick();
    const auto nextSecond = std::chrono::ceil<std::chrono::seconds>(m_timeDuration);
    m_resumeTickTimer = m_timers.start(secondsTo(nextSecond.count()), Timer::Kind::OneShot,
                                       [this] { tickAtOnceAndOn(); });
}

void SplashClock::cancelResumeTick() {
    if (m_resumeTickTimer)
        m_resumeTickTimer->invalidate();
}

void SplashClock::startVideoAfter(double seconds) {
    m_videoTimer = m_timers.start(seconds, Timer::Kind::OneShot, m_handlers.videoDue);
}

void SplashClock::startCloseButtonAfter(double seconds) {
    m_videoTimer = m_timers.start(seconds, Timer::Kind::OneShot, m_handlers.closeButtonDue);
}

void SplashClock::stopPhaseTimer() {
    Timer::cancel(m_videoTimer);
}

} // namespace velmora
