// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// Names a process of this machine, in a form that a later process can check: "PID-START". START is
/// the process's start time in the system's clock ticks since the machine started, so that another
/// process with the same number is not taken for it. It is empty where the system has no /proc. Any
/// thread.
class ProcessIdentity {
public:
    static QString ofThisProcess();

    /// True while the process runs. Any other text names no process.
    static bool isAlive(const QString &identity);
};

} // namespace velmora
