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

    /// @param arguments of the host; a number in it is that of the pictures
    static BannerCost of(const QString &program, const QStringList &arguments,
                         const BenchServer &bench, const BenchOptions &options);
};

} // namespace velmora::bench
