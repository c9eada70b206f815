// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// How long the calls of the class Velmora hold up their caller.
class CallsRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
