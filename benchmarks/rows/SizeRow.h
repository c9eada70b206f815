// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// The size of the library's file, and what it exports.
class SizeRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
