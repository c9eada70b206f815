// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/ProcessFigures.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <time.h>

namespace velmora::bench {

namespace {

QByteArray contents(qint64 processId, const QByteArray &file) {
    QFile source(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(file)));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

QList<qint64> children(qint64 processId) {
    QList<qint64> children;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(processId));
    const QStringList threads = tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &thread : threads) {
        const QByteArray file = "task/" + thread.toLatin1() + "/children";
        for (const QByteArray &child : contents(processId, file).simplified().split(' ')) {
            if (!child.isEmpty())
                children << child.toLongLong();
        }
    }
    return children;
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
    for (const qint64 child : children(processId)) {
        const ProcessFigures childs = of(child);
        figures.cpuSeconds += childs.cpuSeconds;
        figures.privateMegabytes += childs.privateMegabytes;
    }
    return figures;
}

} // namespace velmora::bench
