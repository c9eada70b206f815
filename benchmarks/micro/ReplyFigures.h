// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "benchmarks/micro/MicroFigures.h"

namespace velmora::bench {

/// What a large reply costs the main thread, when it arrives and at each banner afterwards.
class ReplyFigures {
public:
    static void addTo(MicroFigures &figures, adserver::AdServer &server);
};

} // namespace velmora::bench
