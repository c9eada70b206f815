// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/StartPhaseRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/hosts/PlainWindow.h"
#include "benchmarks/rows/Campaign.h"
#include "benchmarks/rows/Display.h"
#include "benchmarks/rows/HostProcess.h"

#include <algorithm>
#include <map>
#include <thread>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 5;
constexpr int SettleMs = 1500;
constexpr int CpuMs = 5000;
constexpr QSize WindowSize(250, 300);
constexpr int Columns = 10;
// In a window, where its splash screen has nothing but its background.
constexpr QPoint InWindow(8, 280);
const std::map<int, double> GoalsMs{{1, 20}, {10, 25}, {50, 50}};

} // namespace

void StartPhaseRow::measure(const BenchOptions &options) {
    BenchServer bench;
    Campaign::serve(bench, Campaign::sampleBanner(), Campaign::sampleFilm());
    const Display display;
    const std::map<int, double> goalsMs =
        options.isSmoke ? std::map<int, double>{*GoalsMs.rbegin()} : GoalsMs;
    std::map<int, std::vector<double>> paintedMs;
    std::map<int, std::vector<double>> cpuPercent;
    for (int round = 0; round < options.roundsOr(UsualRounds); ++round) {
        for (const auto &[count, goal] : goalsMs) {
            QList<QPoint> points;
            for (int i = 0; i < count; ++i)
                points.append(placeInGrid(i, WindowSize, Columns).topLeft() + InWindow);
            const auto isWindow = [](const QColor &color) { return color == PlainWindow::Color; };
            HostProcess host(QStringLiteral("velmora-bench-host"),
                             {QStringLiteral("start-phase"), QString::number(count)},
                             bench.environment());
            display.waitFor(points, [&](const QList<QColor> &colors) {
                return std::ranges::all_of(colors, isWindow);
            });
            const qint64 painted = display.waitFor(points, [&](const QList<QColor> &colors) {
                return std::ranges::none_of(colors, isWindow);
            });
            paintedMs[count].push_back((double(painted) - host.waitFor("asked").value(0)) / 1e6);
            HostProcess::sleepUntil(painted +
                                    options.millisecondsOr(SettleMs, 100) * qint64(1'000'000));
            const qint64 from = HostProcess::now();
            const double before = host.figures().cpuSeconds;
            HostProcess::sleepUntil(from + options.millisecondsOr(CpuMs, 300) * qint64(1'000'000));
            // A helper that has ended meanwhile takes its time with it.
            const double used = std::max(0.0, host.figures().cpuSeconds - before);
            cpuPercent[count].push_back(used / (double(HostProcess::now() - from) / 1e9) * 100);
        }
    }
    for (const auto &[count, goal] : goalsMs)
        Figure{QStringLiteral("start-phase"),
               QStringLiteral("all painted, windows: %1").arg(count),
               {},
               QStringLiteral("ms"),
               QStringLiteral("absolute"),
               goal}
            .print(paintedMs[count]);
    for (const auto &[count, percent] : cpuPercent)
        Figure{QStringLiteral("start-phase"),
               QStringLiteral("CPU, windows: %1").arg(count),
               {},
               QStringLiteral("% of a core"),
               QStringLiteral("absolute"),
               5}
            .print(percent);
}

} // namespace velmora::bench
