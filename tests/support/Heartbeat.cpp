// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Heartbeat.h"

#include <time.h>

#include <algorithm>

namespace velmora::test {

namespace {

double threadCpuMs() {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return double(used.tv_sec) * 1e3 + double(used.tv_nsec) / 1e6;
}

} // namespace

Heartbeat::Heartbeat() {
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(1);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
}

void Heartbeat::restart() {
    m_longest = {};
    m_wall.start();
    m_cpuMs = threadCpuMs();
    m_timer.start();
}

void Heartbeat::beat() {
    const double cpuMs = threadCpuMs();
    m_longest.wallMs = std::max(m_longest.wallMs, double(m_wall.nsecsElapsed()) / 1e6);
    m_longest.cpuMs = std::max(m_longest.cpuMs, cpuMs - m_cpuMs);
    m_wall.start();
    m_cpuMs = cpuMs;
}

} // namespace velmora::test
