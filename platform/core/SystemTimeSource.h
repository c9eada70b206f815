// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"

#include <QtCore/QTimer>

#include <unordered_map>

namespace velmora {

/// The steady clock and precise Qt timers. A deadline that was missed is fired once, late, and
/// the following ones stay on the original grid, so that a second tick does not drift.
class SystemTimeSource final : public TimeSource {
public:
    ~SystemTimeSource() override;

    Duration now() const override;
    void add(const std::shared_ptr<Timer> &timer) override;
    void remove(Timer *timer) override;

private:
    struct Scheduled {
        std::shared_ptr<Timer> timer;
        std::unique_ptr<QTimer> clock;
    };

    void arm(Scheduled &scheduled);
    void fire(Timer *timer);

    std::unordered_map<Timer *, Scheduled> m_scheduled;
};

} // namespace velmora
