// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// The longest slice of the main thread in a sequence of splash screens.
class SlicesRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
