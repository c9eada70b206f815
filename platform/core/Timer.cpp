// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Timer.h>

#include "TimeSource.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

constexpr Timer::Duration Frame{1'000'000'000 / 60};
constexpr double LongestSeconds = 10.0 * 365 * 24 * 3600;

Timer::Duration durationFrom(double seconds) {
    // Not "seconds <= 0", so that NaN is caught too.
    if (!(seconds > 0))
        return Timer::Duration{0};
    return Timer::Duration{std::llround(std::min(seconds, LongestSeconds) * 1e9)};
}

} // namespace

Timer::Timer(Duration interval, Kind kind, std::function<void()> callback)
    : m_interval(interval), m_kind(kind), m_callback(std::move(callback)) {}

std::shared_ptr<Timer> Timer::scheduled(double seconds, Kind kind, std::function<void()> callback) {
    Duration interval = durationFrom(seconds);
    if (kind == Kind::Repeating && interval == Duration{0})
        interval = Frame;
    std::shared_ptr<Timer> timer(new Timer(interval, kind, std::move(callback)));
    TimeSource &source = TimeSource::current();
    timer->m_deadline = source.now() + interval;
    source.add(timer);
    return timer;
}

void Timer::invalidate() {
    if (!m_valid)
        return;
    m_valid = false;
    const std::shared_ptr<Timer> alive = shared_from_this();
    TimeSource::current().remove(this);
    // Destroyed last: the callback may own the object that is calling invalidate().
    std::exchange(m_callback, nullptr);
}

void Timer::cancel(std::shared_ptr<Timer> &timer) {
    if (const std::shared_ptr<Timer> old = std::exchange(timer, nullptr))
        old->invalidate();
}

void Timer::fire(Duration now) {
    if (!m_valid)
        return;
    if (m_kind == Kind::OneShot) {
        const std::function<void()> callback = std::exchange(m_callback, nullptr);
        invalidate();
        callback();
        return;
    }
    const auto missed = (now - m_deadline) / m_interval;
    m_deadline += m_interval * (std::max<Duration::rep>(missed, 0) + 1);
    const std::function<void()> callback = m_callback;
    callback();
}

} // namespace velmora
