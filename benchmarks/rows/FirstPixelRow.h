// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// How soon the first pixel of a banner is on the display.
class FirstPixelRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
