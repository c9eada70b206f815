// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/ProcessFigures.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QSet>

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
    QHash<qint64, qint64> parents;
    QSet<qint64> members;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        const qint64 id = name.toLongLong();
        // The parent's identifier comes after the state, which comes after the program's name.
        const QByteArray status = contents(id, "stat");
        parents[id] = status.mid(status.lastIndexOf(')') + 2).split(' ').value(1).toLongLong();
        if (contents(id, "environ").split('\0').contains(entry))
            members.insert(id);
    }
    const auto isMember = [&](qint64 id) {
        while (id > 1 && !members.contains(id))
            id = parents.value(id);
        return id > 1;
    };

    ProcessFigures sum;
    for (const qint64 id : parents.keys()) {
        if (!isMember(id))
            continue;
        const ProcessFigures figures = of(id);
        sum.cpuSeconds += figures.cpuSeconds;
        sum.privateMegabytes += figures.privateMegabytes;
    }
    return sum;
}

} // namespace velmora::bench
