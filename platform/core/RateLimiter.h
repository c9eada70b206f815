// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "TimeSource.h"

namespace velmora {

/// Allows something at most five times a second. The framework limits changes that the host's code
/// may undo at once (a raised widget, a moved focus), so that the two cannot loop for ever. Main
/// thread only.
class RateLimiter {
public:
    /// True when it may happen once more now. Every call counts, also one that returns false.
    bool allows() {
        constexpr int MaxPerSecond = 5;
        const auto now = TimeSource::current().now();
        if (m_count == 0 || now - m_start >= std::chrono::seconds(1)) {
            m_start = now;
            m_count = 0;
        }
        return ++m_count <= MaxPerSecond;
    }

private:
    TimeSource::Duration m_start{0};
    int m_count = 0;
};

} // namespace velmora
