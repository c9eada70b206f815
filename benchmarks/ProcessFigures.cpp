// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/ProcessFigures.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <time.h>

namespace velmora::bench {

namespace {

QByteArray contents(qint64 processId, const char *file) {
    QFile source(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(file)));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

} // namespace

ProcessFigures ProcessFigures::of(qint64 processId) {
    ProcessFigures figures;
    // This clock is finer than the ticks in /proc/PID/stat and includes threads that have ended.
    clockid_t clock{};
    timespec used{};
    if (clock_getcpuclockid(static_cast<pid_t>(processId), &clock) == 0 &&
        clock_gettime(clock, &used) == 0)
        figures.cpuSeconds = double(used.tv_sec) + double(used.tv_nsec) / 1e9;
    const auto lines = contents(processId, "smaps_rollup").split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Private_Dirty"))
            figures.privateMegabytes += line.simplified().split(' ').value(1).toDouble() / 1024;
    }
    const auto status = contents(processId, "status").split('\n');
    for (const QByteArray &line : status) {
        if (line.startsWith("VmHWM"))
            figures.peakMegabytes = line.simplified().split(' ').value(1).toDouble() / 1024;
    }
    return figures;
}

ProcessFigures ProcessFigures::ofAllWith(const QByteArray &entry) {
    ProcessFigures sum;
    for (const QString &id : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        if (!contents(id.toLongLong(), "environ").split('\0').contains(entry))
            continue;
        const ProcessFigures figures = of(id.toLongLong());
        sum.cpuSeconds += figures.cpuSeconds;
        sum.privateMegabytes += figures.privateMegabytes;
    }
    return sum;
}

} // namespace velmora::bench
