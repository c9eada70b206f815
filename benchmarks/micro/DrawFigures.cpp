// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/micro/DrawFigures.h"

#include "AdKeys.h"
#include "AdPool.h"
#include "RandomSource.h"
#include "benchmarks/micro/SampleAds.h"

#include <algorithm>
#include <memory>

namespace velmora::bench {

namespace {

/// Draws as a banner rotation does: the ad that was drawn last is left out.
MicroFigures::Work drawsFromPool(int count) {
    return [pool = std::make_shared<AdPool>(kMainBannerKey), count](benchmark::State &state) {
        if (pool->size() == 0)
            pool->addPlacement(SampleAds::banners(count));
        QJsonObject shown;
        for (const auto &iteration : state) {
            Q_UNUSED(iteration)
            shown = *pool->draw(shown);
        }
    };
}

/// The least that a draw can be: the sums of the weights are there, and no ad is left out.
MicroFigures::Work drawsFromSums(int count) {
    return [count](benchmark::State &state) {
        std::vector<qint64> sums;
        for (const QJsonValue &ad : SampleAds::banners(count))
            sums.push_back((sums.empty() ? 0 : sums.back()) + ad[kBannerPriority].toInt());
        for (const auto &iteration : state) {
            Q_UNUSED(iteration)
            const qint64 drawn = qint64(RandomSource::current().next()) % sums.back();
            benchmark::DoNotOptimize(std::ranges::upper_bound(sums, drawn));
        }
    };
}

} // namespace

void DrawFigures::addTo(MicroFigures &figures) {
    for (const auto &[count, goal] : {std::pair{4, 2.0}, {100, 5.0}, {10'000, 100.0}})
        figures.add({QStringLiteral("draw"), QStringLiteral("%L1 ads").arg(count),
                     QStringLiteral("weights ready in memory"), QStringLiteral("us"),
                     QStringLiteral("absolute"), goal},
                    drawsFromPool(count), drawsFromSums(count));
}

} // namespace velmora::bench
