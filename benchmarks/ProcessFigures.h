// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>

namespace velmora::bench {

/// The processor time and memory that a process has used, from the kernel's counters.
struct ProcessFigures {
    double cpuSeconds = 0;
    /// Memory that the process has written and does not share. A library's unwritten pages do not
    /// count, because which of them are shared depends on the other processes that run.
    double privateMegabytes = 0;
    /// The most memory that the process has had in use at a time, with what it shares.
    double peakMegabytes = 0;

    static ProcessFigures of(qint64 processId);

    /// The sum of all processes that have an entry, NAME=VALUE, in their environment, and of their
    /// children, which may have overwritten it.
    static ProcessFigures ofAllWith(const QByteArray &entry);
};

} // namespace velmora::bench
