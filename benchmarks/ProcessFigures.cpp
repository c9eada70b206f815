#include "benchmarks/ProcessFigures.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace velmora::bench {

namespace {

QByteArray contents(qint64 processId, const char *file) {
    QFile source(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(file)));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

} // namespace

ProcessFigures ProcessFigures::of(qint64 processId) {
    ProcessFigures figures;
    // Nanoseconds on a processor, of each thread; finer than the kernel's clock ticks.
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(processId));
    const auto threads = tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &thread : threads) {
        const QByteArray schedule =
            contents(processId, qPrintable(QStringLiteral("task/%1/schedstat").arg(thread)));
        figures.cpuSeconds += schedule.split(' ').first().toDouble() / 1e9;
    }
    const auto lines = contents(processId, "smaps_rollup").split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Private_Dirty"))
            figures.privateMegabytes += line.simplified().split(' ').value(1).toDouble() / 1024;
    }
    return figures;
}

} // namespace velmora::bench
