// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// Start screens in many windows: how soon they are painted, and what they cost.
class StartPhaseRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
