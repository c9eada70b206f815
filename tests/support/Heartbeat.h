// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

namespace velmora::test {

/// Measures for how long the main thread does not get back to its event loop: a timer of one
/// millisecond notes the longest time between two of its beats. Main thread only.
class Heartbeat {
public:
    struct Gap {
        double wallMs = 0; ///< with the time in which other processes and threads had the processor
        double cpuMs = 0;  ///< the thread's own processor time
    };

    Heartbeat();

    /// Forgets what was measured so far and measures from now on.
    void restart();

    /// The largest values of all gaps; the two may be of different ones.
    Gap longest() const { return m_longest; }

private:
    void beat();

    QTimer m_timer;
    QElapsedTimer m_wall;
    double m_cpuMs = 0;
    Gap m_longest;
};

} // namespace velmora::test
