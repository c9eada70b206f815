// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/FirstPixelRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/hosts/PlainWindow.h"
#include "benchmarks/rows/Campaign.h"
#include "benchmarks/rows/Display.h"
#include "benchmarks/rows/HostProcess.h"

#include <QtCore/QDir>

#include <algorithm>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 9;
// In which a host stores what it has loaded.
constexpr int StoreMs = 1500;
// Where both hosts put their picture.
constexpr QRect Picture(120, 510, 760, 76);

QList<QPoint> pointsInPicture() {
    QList<QPoint> points;
    for (int x = Picture.left(); x <= Picture.right(); x += 40)
        points.append({x, Picture.center().y()});
    return points;
}

bool isWindow(const QColor &color) {
    return color == PlainWindow::Color;
}

/// In milliseconds, from the moment at which the host asks for its picture.
/// @param stayMs how long the host stays after that
double firstPixelMs(const char *program, const Display &display, const BenchServer &bench,
                    int stayMs) {
    static const QList<QPoint> s_points = pointsInPicture();
    display.waitFor(s_points, [](const QList<QColor> &colors) { // the host before is gone
        return std::ranges::none_of(colors, isWindow);
    });
    HostProcess host(QString::fromLatin1(program), {QStringLiteral("first-pixel")},
                     bench.environment());
    display.waitFor(s_points, [](const QList<QColor> &colors) {
        return std::ranges::all_of(colors, isWindow);
    });
    const qint64 shown = display.waitFor(s_points, [](const QList<QColor> &colors) {
        return !std::ranges::all_of(colors, isWindow);
    });
    HostProcess::sleepUntil(shown + stayMs * qint64(1'000'000));
    return (double(shown) - host.waitFor("asked").value(0)) / 1e6;
}

} // namespace

void FirstPixelRow::measure(const BenchOptions &options) {
    BenchServer bench;
    Campaign::serve(bench, Campaign::sampleBanner(), Campaign::sampleFilm());
    const Display display;
    for (const bool isCached : {false, true}) {
        std::vector<double> ours;
        std::vector<double> plain;
        // Before the measurements with stored pictures, an unmeasured run of each stores them.
        for (int round = isCached ? -1 : 0; round < options.roundsOr(UsualRounds); ++round) {
            for (auto &[program, times] :
                 {std::pair("velmora-bench-host", &ours), {"velmora-bench-label-host", &plain}}) {
                if (!isCached)
                    QDir(bench.cachesFolder()).removeRecursively();
                QDir().mkpath(bench.cachesFolder());
                const bool isMeasured = round >= 0;
                const double time = firstPixelMs(program, display, bench, isMeasured ? 0 : StoreMs);
                if (isMeasured)
                    times->push_back(time);
            }
        }
        Figure{QStringLiteral("first-pixel"),
               isCached ? QStringLiteral("picture cached") : QStringLiteral("picture not cached"),
               QStringLiteral("a label and 30 lines of plain code"),
               QStringLiteral("ms"),
               QStringLiteral("ratio"),
               1.1}
            .print(ours, plain);
    }
}

} // namespace velmora::bench
