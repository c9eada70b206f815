// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/rows/WebViewRow.h"

#include "benchmarks/Figure.h"
#include "benchmarks/rows/BannerCost.h"
#include "benchmarks/rows/Campaign.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <vector>

namespace velmora::bench {

namespace {

constexpr int UsualRounds = 2;

Figure figure(const char *name, const char *unit, double goal) {
    return {QStringLiteral("web-view"),
            QString::fromLatin1(name),
            QStringLiteral("a web view with the same picture"),
            QString::fromLatin1(unit),
            QStringLiteral("ratio"),
            goal};
}

} // namespace

void WebViewRow::measure(const BenchOptions &options) {
    const Figure cpu = figure("CPU", "% of a core", 0.125);
    const Figure memory = figure("private memory above the window's", "MB", 0.01);
    const QString webHost = QStringLiteral("velmora-bench-web-host");
    if (!QFileInfo::exists(QCoreApplication::applicationDirPath() + u'/' + webHost)) {
        for (const Figure &missing : {cpu, memory})
            missing.printMissing(QStringLiteral("there is no Qt WebEngine"));
        return;
    }
    BenchServer bench;
    Campaign::serve(bench, Campaign::sampleBanner(), Campaign::sampleFilm());
    BannerCost::Series ours;
    BannerCost::Series web;
    for (int round = 0; round < options.roundsOr(UsualRounds); ++round) {
        const double window =
            BannerCost::of({QStringLiteral("velmora-bench-label-host"), {QStringLiteral("window")}},
                           bench, options)
                .megabytes;
        for (BannerCost::Series *series : {&ours, &web}) {
            const BannerCost::Host host =
                series == &web ? BannerCost::Host{webHost, {}}
                               : BannerCost::Host{QStringLiteral("velmora-bench-host"),
                                                  {QStringLiteral("banners"), QStringLiteral("1")}};
            BannerCost cost = BannerCost::of(host, bench, options);
            cost.megabytes = std::max(0.0, cost.megabytes - window);
            series->add(cost);
        }
    }
    cpu.print(ours.cpuPercent, web.cpuPercent);
    memory.print(ours.megabytes, web.megabytes);
}

} // namespace velmora::bench
