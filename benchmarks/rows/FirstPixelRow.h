// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/rows/RowOptions.h"

namespace velmora::bench {

/// How soon the first pixel of a banner is on the display.
class FirstPixelRow {
public:
    static void measure(const RowOptions &options);
};

} // namespace velmora::bench
