// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/rows/RowOptions.h"

namespace velmora::bench {

/// What banner and splash screen add to the start of a host.
class StartUpRow {
public:
    static void measure(const RowOptions &options);
};

} // namespace velmora::bench
