// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/StartUpRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/hosts/PlainWindow.h"
#include "benchmarks/rows/Campaign.h"
#include "benchmarks/rows/Display.h"
#include "benchmarks/rows/HostProcess.h"

#include <QtCore/QFile>

#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 9;
// In which the host starts and its first requests end.
constexpr int StartMs = 2500;
constexpr QPoint InWindow(500, 200);

struct Start {
    std::vector<double> paintMs;
    std::vector<double> megabytes;
    std::vector<double> cpuMs;
    std::vector<double> multimediaLibraries;
};

int multimediaLibraries(qint64 processId) {
    QFile maps(QStringLiteral("/proc/%1/maps").arg(processId));
    maps.open(QIODevice::ReadOnly);
    int count = 0;
    for (const QByteArray &line : maps.readAll().split('\n')) {
        for (const char *part : {"gstreamer", "libgst", "Multimedia", "libav", "libpulse"})
            count += line.contains(part) && line.contains(" 00000000 ");
    }
    return count;
}

void measureOne(const char *program, const Display &display, const BenchServer &bench, int startMs,
                Start &start) {
    const auto isShown = [](bool expected) {
        return [expected](const QList<QColor> &colors) {
            return (colors.first() == PlainWindow::Color) == expected;
        };
    };
    display.waitFor({InWindow}, isShown(false)); // the host before is gone
    const HostProcess host(QString::fromLatin1(program), {}, bench.environment());
    const qint64 painted = display.waitFor({InWindow}, isShown(true));
    HostProcess::sleepUntil(host.startedAt() + qint64(startMs) * 1'000'000);
    const ProcessFigures figures = host.figures();
    start.paintMs.push_back(double(painted - host.startedAt()) / 1e6);
    start.megabytes.push_back(figures.privateMegabytes);
    start.cpuMs.push_back(figures.cpuSeconds * 1000);
    start.multimediaLibraries.push_back(multimediaLibraries(host.processId()));
}

} // namespace

void StartUpRow::measure(const BenchOptions &options) {
    BenchServer bench;
    Campaign::serve(bench, Campaign::sampleBanner(), Campaign::sampleFilm());
    const Display display;
    const int startMs = options.millisecondsOr(StartMs, 500);
    Start with;
    Start without;
    // The first run fills the caches, those of the library and of the machine.
    for (int round = options.isSmoke ? 1 : 0; round <= options.roundsOr(UsualRounds); ++round) {
        Start unused;
        measureOne("velmora-bench-start", display, bench, startMs, round ? with : unused);
        measureOne("velmora-bench-start-plain", display, bench, startMs, round ? without : unused);
    }
    const auto figure = [](const char *name, const char *unit, const char *kind, double goal) {
        return Figure{QStringLiteral("start-up"),
                      QString::fromLatin1(name),
                      QStringLiteral("the same host without the library"),
                      QString::fromLatin1(unit),
                      QString::fromLatin1(kind),
                      goal};
    };
    figure("first paint", "ms", "difference", 8).print(with.paintMs, without.paintMs);
    figure("private memory", "MB", "difference", 3).print(with.megabytes, without.megabytes);
    figure("CPU to 2.5 s", "ms", "difference", 20).print(with.cpuMs, without.cpuMs);
    figure("multimedia libraries mapped", "", "exact", 0).print(with.multimediaLibraries);
}

} // namespace velmora::bench
