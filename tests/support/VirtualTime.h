// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <vector>

namespace velmora::test {

/// Replaces the framework's clock by one that stands still until a test advances it, from
/// construction to destruction.
class VirtualTime final : public TimeSource {
public:
    VirtualTime() { setCurrent(this); }
    ~VirtualTime() override;

    Duration now() const override { return m_now; }
    void add(const std::shared_ptr<Timer> &timer) override { m_timers.push_back(timer); }
    void remove(Timer *timer) override;

    /// Advances the time. Timers that become due fire in order, with event handling after each.
    void advance(double seconds);

    /// Number of scheduled timers.
    size_t timerCount() const { return m_timers.size(); }

private:
    Duration m_now{0};
    std::vector<std::shared_ptr<Timer>> m_timers;
};

} // namespace velmora::test
