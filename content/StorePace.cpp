// SPDX-License-Identifier: Apache-2.0
#include "StorePace.h"

#include "MainQueue.h"
#include "TimeSource.h"

#include <Velmora/Support.h>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {
// Storing takes a fifth of the main thread's time at most.
constexpr double PausePerStore = 4;
constexpr double LongestPauseSeconds = 0.5;
} // namespace

StorePace::StorePace(std::function<void()> store) : m_store(std::move(store)) {}

StorePace::~StorePace() {
    if (m_timer)
        m_timer->invalidate();
}

void StorePace::storeLater() {
    m_isDue = true;
    if (!m_timer || !m_timer->isValid())
        storeSoon();
}

void StorePace::storeSoon() {
    m_isDue = true;
    if (!std::exchange(m_isPosted, true))
        MainQueue::post([this] { storeNow(); });
}

void StorePace::storeNow() {
    m_isPosted = false;
    if (!m_isDue)
        return;
    const auto start = TimeSource::current().now();
    m_store();
    const std::chrono::duration<double> duration = TimeSource::current().now() - start;
    if (m_hasPauses)
        pause(std::min(LongestPauseSeconds, PausePerStore * duration.count()));
}

void StorePace::retry() {
    m_isDue = true;
    pause(LongestPauseSeconds);
}

void StorePace::pause(double seconds) {
    if (m_timer)
        m_timer->invalidate();
    m_timer = Timer::scheduled(seconds, Timer::Kind::OneShot, [this] {
        if (m_isDue)
            storeSoon();
    });
    setGodTimer(m_timer);
}

} // namespace velmora
