// SPDX-License-Identifier: Apache-2.0
#include "SystemTimeSource.h"

#include "ProcessRoot.h"
#include <Velmora/Timer.h>

#include <algorithm>

namespace velmora {

namespace {
// Set by tests. Not in ProcessRoot, so that virtual time goes on when a test drops the process
// state.
TimeSource *s_replacement = nullptr;
} // namespace

TimeSource &TimeSource::current() {
    return s_replacement ? *s_replacement : ProcessRoot::get<SystemTimeSource>();
}

void TimeSource::setCurrent(TimeSource *source) {
    s_replacement = source;
}

SystemTimeSource::~SystemTimeSource() {
    for (auto &[timer, scheduled] : m_scheduled)
        timer->sourceGone();
}

TimeSource::Duration SystemTimeSource::now() const {
    return std::chrono::duration_cast<Duration>(
        std::chrono::steady_clock::now().time_since_epoch());
}

void SystemTimeSource::add(const std::shared_ptr<Timer> &timer) {
    auto clock = std::make_unique<QTimer>();
    clock->setTimerType(Qt::PreciseTimer);
    clock->setSingleShot(true);
    Timer *key = timer.get();
    QObject::connect(clock.get(), &QTimer::timeout, clock.get(), [this, key] { fire(key); });
    arm(m_scheduled[key] = {timer, std::move(clock)});
}

void SystemTimeSource::remove(Timer *timer) {
    const auto found = m_scheduled.find(timer);
    if (found == m_scheduled.end())
        return;
    // Not deleted at once: this may be called from a slot of the QTimer's own timeout signal.
    found->second.clock->stop();
    found->second.clock.release()->deleteLater();
    m_scheduled.erase(found);
}

void SystemTimeSource::arm(Scheduled &scheduled) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(scheduled.timer->deadline() - now());
    // QTimer counts milliseconds in an int, which is enough for 24 days. A timer with a later
    // deadline expires early; fire() then only arms it again.
    const std::chrono::milliseconds longest = std::chrono::hours(24);
    scheduled.clock->start(std::clamp(left, std::chrono::milliseconds(0), longest));
}

void SystemTimeSource::fire(Timer *timer) {
    const auto found = m_scheduled.find(timer);
    // The main thread may still be here while another thread is in exit().
    if (found == m_scheduled.end() || ProcessRoot::hasEnded())
        return;
    const std::shared_ptr<Timer> alive = found->second.timer;
    if (now() >= alive->deadline())
        alive->fire(now());
    const auto still = m_scheduled.find(timer);
    if (still != m_scheduled.end())
        arm(still->second);
}

} // namespace velmora
