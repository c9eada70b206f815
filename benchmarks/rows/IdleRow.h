// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// How often a host is woken up when there is nothing to show.
class IdleRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
