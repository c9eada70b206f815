// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/VelmoraEvents.h>

namespace velmora {

/// Owns the process's VelmoraEvents, which is made when the host first asks for it: for a host that
/// never does, the library computes no signal. Main thread only.
struct EventSource {
    VelmoraEvents events;

    /// Null until the host has asked for it.
    static VelmoraEvents *existing();
};

} // namespace velmora
