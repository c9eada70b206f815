// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"
#include <Velmora/Timer.h>

#include <vector>

namespace velmora::test {

/// Time that passes only when a test says so. In force from construction to destruction.
class VirtualTime final : public TimeSource {
public:
    VirtualTime() { setCurrent(this); }
    ~VirtualTime() override;

    Duration now() const override { return m_now; }
    void add(const std::shared_ptr<Timer> &timer) override { m_timers.push_back(timer); }
    void remove(Timer *timer) override;

    /// Lets so many seconds pass: fires what falls due, in order, and handles events between.
    void advance(double seconds);

    /// Timers that are scheduled now.
    size_t timerCount() const { return m_timers.size(); }

private:
    Duration m_now{0};
    std::vector<std::shared_ptr<Timer>> m_timers;
};

} // namespace velmora::test
