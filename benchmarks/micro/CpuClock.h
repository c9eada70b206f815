// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <time.h>

namespace velmora::bench {

/// The processor time since this was made, in seconds.
class CpuClock {
public:
    /// @param clock CLOCK_PROCESS_CPUTIME_ID for all threads, CLOCK_THREAD_CPUTIME_ID for this one
    explicit CpuClock(clockid_t clock) : m_clock(clock), m_start(now()) {}

    double seconds() const { return now() - m_start; }

private:
    double now() const {
        timespec time{};
        clock_gettime(m_clock, &time);
        return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
    }

    clockid_t m_clock;
    double m_start;
};

} // namespace velmora::bench
