// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// The size of the library's file, and what it exports. The environment variable
/// VELMORA_PACKAGED_LIBRARY names the file; without it, this build's library is measured.
class SizeRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
