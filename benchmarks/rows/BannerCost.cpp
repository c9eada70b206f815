// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/BannerCost.h"

#include "benchmarks/rows/HostProcess.h"

#include <QtGui/QImageReader>

#include <memory>

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

BannerCost BannerCost::of(const Host &host, const BenchServer &bench, const BenchOptions &options) {
    return ofAll({host}, bench, options).front();
}

std::vector<BannerCost> BannerCost::ofAll(const std::vector<Host> &hosts, const BenchServer &bench,
                                          const BenchOptions &options) {
    static const int s_animationMs = animationMs();
    std::vector<std::unique_ptr<HostProcess>> processes;
    for (const Host &host : hosts) {
        processes.push_back(
            std::make_unique<HostProcess>(host.program, host.arguments, bench.environment()));
        // Labels tell it for each picture.
        const bool isLabels = host.arguments.value(0) == QLatin1String("labels");
        const int shown = isLabels ? host.arguments.value(1).toInt() : 1;
        for (int i = 0; i < shown; ++i)
            processes.back()->waitFor("shown");
    }
    const qint64 from =
        HostProcess::now() + options.millisecondsOr(WarmUpMs, 100) * qint64(1'000'000);
    HostProcess::sleepUntil(from);
    std::vector<ProcessFigures> before;
    for (const auto &process : processes)
        before.push_back(process->figures());
    HostProcess::sleepUntil(from +
                            options.millisecondsOr(2 * s_animationMs, 300) * qint64(1'000'000));
    std::vector<BannerCost> costs;
    for (size_t i = 0; i < processes.size(); ++i) {
        const ProcessFigures after = processes[i]->figures();
        const double seconds = double(HostProcess::now() - from) / 1e9;
        costs.push_back(
            {(after.cpuSeconds - before[i].cpuSeconds) / seconds * 100, after.privateMegabytes});
    }
    return costs;
}

} // namespace velmora::bench
