// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"

#include <QtCore/QTimer>

#include <unordered_map>

namespace velmora {

/// Real time: the steady clock and precise Qt timers. A repeating timer that missed deadlines, for
/// example because the main thread was busy, fires once for all of them. Its later deadlines stay
/// multiples of the interval after its start, so a countdown of seconds does not drift.
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
