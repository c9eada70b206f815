// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

namespace velmora::bench {

/// What a process has used up to now, as the kernel counts it.
struct ProcessFigures {
    double cpuSeconds = 0;
    /// Pages that the process has written and shares with nobody. Unwritten pages of a library
    /// are left out: whether they are shared depends on what else happens to run.
    double privateMegabytes = 0;

    static ProcessFigures of(qint64 processId);
};

} // namespace velmora::bench
