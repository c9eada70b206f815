// SPDX-License-Identifier: Apache-2.0
#include "tests/support/VirtualTime.h"

#include "tests/support/Waiting.h"

#include <algorithm>
#include <cmath>

namespace velmora::test {

VirtualTime::~VirtualTime() {
    for (const auto &timer : m_timers)
        timer->sourceGone();
    setCurrent(nullptr);
}

void VirtualTime::remove(Timer *timer) {
    std::erase_if(m_timers, [timer](const auto &known) { return known.get() == timer; });
}

void VirtualTime::advance(double seconds) {
    const Duration target = m_now + Duration{std::llround(seconds * 1e9)};
    handleEvents();
    for (;;) {
        const auto next =
            std::min_element(m_timers.begin(), m_timers.end(), [](const auto &a, const auto &b) {
                return a->deadline() < b->deadline();
            });
        if (next == m_timers.end() || (*next)->deadline() > target)
            break;
        m_now = std::max(m_now, (*next)->deadline());
        const std::shared_ptr<Timer> timer = *next;
        timer->fire(m_now);
        handleEvents();
    }
    m_now = target;
}

} // namespace velmora::test
