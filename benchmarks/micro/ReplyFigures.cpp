// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/micro/ReplyFigures.h"

#include "AdTable.h"
#include "AdsDownloader.h"
#include "CachesFolder.h"
#include "benchmarks/micro/CpuClock.h"
#include "benchmarks/micro/SampleAds.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>

namespace velmora::bench {

namespace {

constexpr int ManyAds = 10'000;
constexpr int Swaps = 100;

/// From the request to the moment at which ads can be drawn from the reply.
MicroFigures::Work loadsReply(adserver::AdServer &server, int count) {
    return [&server, count](benchmark::State &state) {
        server.campaign().setReply(SampleAds::reply(count));
        for (const auto &iteration : state) {
            Q_UNUSED(iteration)
            const CpuClock clock(CLOCK_THREAD_CPUTIME_ID);
            const auto table = std::make_shared<AdTable>();
            table->load({});
            while (!table->hasReply())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            const bool hasAds = table->draw(kMainBannerKey).has_value();
            state.SetIterationTime(clock.seconds());
            if (!hasAds)
                qFatal("the reply has no ads");
        }
    };
}

/// The longest of many banner swaps; the banners' picture is in the cache.
MicroFigures::Work swapsBanners(int count) {
    return [count](benchmark::State &state) {
        QDir().mkpath(CachesFolder::path());
        QFile::copy(QStringLiteral(VELMORA_SAMPLE_BANNER),
                    CachesFolder::pathFor(QLatin1String(SampleAds::Picture).mid(1)));
        const auto &downloader = AdsDownloader::sharedInstance();
        downloader->setReplyJSON(QJsonObject{{kMainBannerKey, SampleAds::banners(count)}});
        for (const auto &iteration : state) {
            Q_UNUSED(iteration)
            double longest = 0;
            int swapped = 0;
            for (int i = 0; i < Swaps; ++i) {
                const CpuClock clock(CLOCK_THREAD_CPUTIME_ID);
                downloader->downloadBannerWithComplitionBlock(
                    [&swapped](const BannerAd &, bool hasFailed) { swapped += hasFailed ? 0 : 1; });
                QCoreApplication::processEvents();
                longest = std::max(longest, clock.seconds());
            }
            if (swapped != Swaps)
                qFatal("only %d of %d banners were loaded", swapped, Swaps);
            state.SetIterationTime(longest);
        }
    };
}

} // namespace

void ReplyFigures::addTo(MicroFigures &figures, adserver::AdServer &server) {
    const auto figure = [](const QString &name, double goal) {
        return Figure{QStringLiteral("reply"),
                      name,
                      QStringLiteral("a reply of one ad"),
                      QStringLiteral("ms"),
                      QStringLiteral("absolute"),
                      goal};
    };
    figures.addTimed(figure(QStringLiteral("%L1 ads, main thread").arg(ManyAds), 4),
                     loadsReply(server, ManyAds), loadsReply(server, 1));
    figures.addTimed(figure(QStringLiteral("longest of %L1 swaps, main thread").arg(Swaps), 1),
                     swapsBanners(ManyAds), swapsBanners(1));
}

} // namespace velmora::bench
