// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/BannerCost.h"

#include "benchmarks/rows/HostProcess.h"

#include <QtGui/QImageReader>

namespace velmora::bench {

namespace {

// Long enough for the work at the start, and for idle connections to be closed.
constexpr int WarmUpMs = 8000;

// A measurement covers complete runs of the animation; otherwise the result would depend on how
// much of a motionless part falls into the measurement.
int animationMs() {
    QImageReader reader(QStringLiteral(VELMORA_SAMPLE_BANNER));
    int length = 0;
    for (QImage frame = reader.read(); !frame.isNull(); frame = reader.read())
        length += reader.nextImageDelay();
    return length;
}

} // namespace

BannerCost BannerCost::of(const QString &program, const QStringList &arguments,
                          const BenchServer &bench, const BenchOptions &options) {
    static const int s_animationMs = animationMs();
    HostProcess host(program, arguments, bench.environment());
    // Labels tell it for each picture.
    const int shown =
        arguments.value(0) == QLatin1String("labels") ? arguments.value(1).toInt() : 1;
    for (int i = 0; i < shown; ++i)
        host.waitFor("shown");
    const qint64 from =
        HostProcess::now() + options.millisecondsOr(WarmUpMs, 100) * qint64(1'000'000);
    HostProcess::sleepUntil(from);
    const ProcessFigures before = host.figures();
    HostProcess::sleepUntil(from +
                            options.millisecondsOr(2 * s_animationMs, 300) * qint64(1'000'000));
    const ProcessFigures after = host.figures();
    const double seconds = double(HostProcess::now() - from) / 1e9;
    return {(after.cpuSeconds - before.cpuSeconds) / seconds * 100, after.privateMegabytes};
}

} // namespace velmora::bench
