// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"
#include "benchmarks/BenchServer.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace velmora::bench {

/// What a host with animated pictures uses, over complete runs of the sample banner's animation.
struct BannerCost {
    double cpuPercent = 0;
    double megabytes = 0;

    struct Series {
        std::vector<double> cpuPercent;
        std::vector<double> megabytes;

        void add(const BannerCost &cost) {
            cpuPercent.push_back(cost.cpuPercent);
            megabytes.push_back(cost.megabytes);
        }
    };

    struct Host {
        QString program;
        QStringList arguments; ///< a number in the second is that of the pictures
    };

    static BannerCost of(const Host &host, const BenchServer &bench, const BenchOptions &options);
    /// What several hosts use in the same time, so that the machine's speed is the same for all.
    static std::vector<BannerCost> ofAll(const std::vector<Host> &hosts, const BenchServer &bench,
                                         const BenchOptions &options);
};

} // namespace velmora::bench
