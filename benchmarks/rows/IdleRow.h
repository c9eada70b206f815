// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/rows/RowOptions.h"

namespace velmora::bench {

/// How often a host is woken up when there is nothing to show.
class IdleRow {
public:
    static void measure(const RowOptions &options);
};

} // namespace velmora::bench
