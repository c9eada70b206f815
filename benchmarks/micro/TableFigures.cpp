// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/micro/TableFigures.h"

#include "AdKeys.h"
#include "AdsCacheInfoStorage.h"
#include "CachesFolder.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "benchmarks/micro/CpuClock.h"
#include "benchmarks/micro/SampleAds.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

namespace velmora::bench {

namespace {

enum class Pace { AtOnce, OneByOne };

void waitForDisk() {
    if (!ProcessRoot::get<DiskQueue>().drain(std::chrono::minutes(5)))
        qFatal("the disk queue does not end");
}

/// Adds new ads to an empty table and waits until they are on disk: after all of them, or after
/// each, as a rotation adds them.
MicroFigures::Work addsToTable(int count, Pace pace) {
    return [count, pace](benchmark::State &state) {
        const QJsonArray ads = SampleAds::banners(count);
        for (const auto &iteration : state) {
            Q_UNUSED(iteration)
            QDir(CachesFolder::path()).removeRecursively();
            AdsCacheInfoStorage storage;
            while (!storage.isLoaded())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            waitForDisk();
            const CpuClock clock(CLOCK_PROCESS_CPUTIME_ID);
            for (const QJsonValue &ad : ads) {
                storage.addBannerInfo(ad.toObject());
                if (pace == Pace::OneByOne)
                    waitForDisk();
            }
            waitForDisk();
            state.SetIterationTime(clock.seconds());
            const auto stored = AdsCacheInfoStorage::cacheInfo().value_or(QJsonObject());
            if (stored.value(kMainBannerKey).toArray().size() != count)
                qFatal("the table on disk is not complete");
        }
    };
}

MicroFigures::Work writesOnce(int count) {
    return [count](benchmark::State &state) {
        const QJsonArray ads = SampleAds::banners(count);
        for (const auto &iteration : state) {
            Q_UNUSED(iteration)
            QDir().mkpath(CachesFolder::path());
            QFile file(CachesFolder::pathFor(QStringLiteral("plain")));
            file.remove();
            const CpuClock clock(CLOCK_PROCESS_CPUTIME_ID);
            QJsonArray table;
            for (const QJsonValue &ad : ads)
                table.append(ad);
            if (file.open(QIODevice::WriteOnly))
                file.write(QJsonDocument(QJsonObject{{kMainBannerKey, table}})
                               .toJson(QJsonDocument::Compact));
            file.close();
            state.SetIterationTime(clock.seconds());
        }
    };
}

} // namespace

void TableFigures::addTo(MicroFigures &figures) {
    const auto add = [&figures](int count, Pace pace) {
        const QString name = QStringLiteral("%L1 new ads").arg(count);
        const bool isAtOnce = pace == Pace::AtOnce;
        figures.addTimed({QStringLiteral("table"),
                          isAtOnce ? name : name + QStringLiteral(", one by one"),
                          QStringLiteral("one plain write"), QStringLiteral("ms"),
                          QStringLiteral("absolute"), double(count)},
                         addsToTable(count, pace), writesOnce(count));
    };
    for (const int count : {10, 100, 1'000, 10'000})
        add(count, Pace::AtOnce);
    add(1'000, Pace::OneByOne);
}

} // namespace velmora::bench
