// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// What banner and splash screen add to the start of a host.
class StartUpRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
