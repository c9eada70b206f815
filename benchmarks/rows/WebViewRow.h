// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/BenchOptions.h"

namespace velmora::bench {

/// The processor time and memory of a banner, compared with a web view.
class WebViewRow {
public:
    static void measure(const BenchOptions &options);
};

} // namespace velmora::bench
