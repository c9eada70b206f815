// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/CallsRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/rows/Campaign.h"
#include "benchmarks/rows/HostProcess.h"

#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 7;

} // namespace

void CallsRow::measure(const BenchOptions &options) {
    BenchServer bench;
    Campaign::serve(bench, Campaign::sampleBanner(), Campaign::sampleFilm());
    std::vector<double> firstBanner;
    std::vector<double> firstSplash;
    std::vector<double> later;
    std::vector<double> worst;
    std::vector<double> forceShow;
    for (int round = 0; round < options.roundsOr(UsualRounds); ++round) {
        for (const bool startsWithBanner : {true, false}) {
            const QString first =
                startsWithBanner ? QStringLiteral("banner") : QStringLiteral("splash");
            HostProcess host(QStringLiteral("velmora-bench-host"), {QStringLiteral("calls"), first},
                             bench.environment());
            const QList<double> times = host.waitFor("calls");
            (startsWithBanner ? firstBanner : firstSplash).push_back(times.value(0));
            later.push_back(times.value(1));
            worst.push_back(times.value(2));
            forceShow.push_back(times.value(3));
        }
    }
    const auto figure = [](const char *name, double goal) {
        return Figure{QStringLiteral("calls"), QString::fromLatin1(name),  {},
                      QStringLiteral("ms"),    QStringLiteral("absolute"), goal};
    };
    figure("first call, addBannerForWindow()", 4).print(firstBanner);
    figure("first call, addSplashScreenToWindow()", 4).print(firstSplash);
    figure("later calls, 99th percentile", 1).print(later);
    figure("later calls, the longest", 4).print(worst);
    figure("forceShow()", 4).print(forceShow);
}

} // namespace velmora::bench
