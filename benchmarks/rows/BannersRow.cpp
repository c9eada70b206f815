// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/BannersRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/rows/BannerCost.h"
#include "benchmarks/rows/Campaign.h"

#include <QtCore/QDir>

#include <map>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 5;

} // namespace

void BannersRow::measure(const BenchOptions &options) {
    BenchServer bench;
    Campaign::serve(bench, Campaign::sampleBanner(), Campaign::sampleFilm());
    QDir().mkpath(bench.cachesFolder());
    std::vector<int> counts{1, 4, 10};
    if (options.isSmoke)
        counts = {10};
    std::map<int, BannerCost::Series> ours;
    std::map<int, BannerCost::Series> labels;
    for (int round = 0; round < options.roundsOr(UsualRounds); ++round) {
        for (const int count : counts) {
            const QString number = QString::number(count);
            const std::vector<BannerCost> costs = BannerCost::ofAll(
                {{QStringLiteral("velmora-bench-host"), {QStringLiteral("banners"), number}},
                 {QStringLiteral("velmora-bench-label-host"),
                  {QStringLiteral("labels"), number, number}}},
                bench, options);
            ours[count].add(costs[0]);
            labels[count].add(costs[1]);
        }
    }
    for (const int count : counts) {
        const auto figure = [count](const char *name, const char *unit, double goal) {
            return Figure{QStringLiteral("banners"),
                          QString::fromLatin1(name).arg(count),
                          QStringLiteral("labels that fetched their own picture"),
                          QString::fromLatin1(unit),
                          QStringLiteral("ratio"),
                          goal};
        };
        figure("CPU, banners: %1", "% of a core", 1.1)
            .print(ours[count].cpuPercent, labels[count].cpuPercent);
        figure("private memory, banners: %1", "MB", 1.15)
            .print(ours[count].megabytes, labels[count].megabytes);
    }
}

} // namespace velmora::bench
