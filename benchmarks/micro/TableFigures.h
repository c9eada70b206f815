// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/micro/MicroFigures.h"

namespace velmora::bench {

/// What new ads cost until they are in the table on disk.
class TableFigures {
public:
    static void addTo(MicroFigures &figures);
};

} // namespace velmora::bench
