#pragma once

#include "platform/TimeSource.h"

namespace velmora {

/// Lets something happen a few times a second and no more: a tug-of-war with somebody who undoes
/// it each time ends. Main thread only.
class RepeatLimit {
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
