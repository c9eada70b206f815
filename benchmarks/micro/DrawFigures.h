// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/micro/MicroFigures.h"

namespace velmora::bench {

/// How long a draw from tables of several sizes takes.
class DrawFigures {
public:
    static void addTo(MicroFigures &figures);
};

} // namespace velmora::bench
