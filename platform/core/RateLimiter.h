// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"

namespace velmora {

/// A rate limiter: lets something happen a few times a second and no more, so that it cannot loop
/// against code that undoes it each time. Main thread only.
class RateLimiter {
public:
    /// Whether it may happen once more now; counts it if so.
    bool allows() {
        constexpr int Most = 5;
        const auto now = TimeSource::current().now();
        if (m_count == 0 || now - m_start >= std::chrono::seconds(1)) {
            m_start = now;
            m_count = 0;
        }
        return ++m_count <= Most;
    }

private:
    TimeSource::Duration m_start{0};
    int m_count = 0;
};

} // namespace velmora
