// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

namespace velmora {

/// What the system's routes say about a target; a set of ReachabilityFlag bits.
using ReachabilityFlags = quint32;

enum ReachabilityFlag : ReachabilityFlags {
    ReachabilityFlagTransientConnection = 1u << 0,  ///< through a point-to-point link, as a tunnel
    ReachabilityFlagReachable = 1u << 1,            ///< the present configuration leads there
    ReachabilityFlagConnectionRequired = 1u << 2,   ///< but a connection must be established first
    ReachabilityFlagConnectionOnTraffic = 1u << 3,  ///< any traffic establishes it
    ReachabilityFlagInterventionRequired = 1u << 4, ///< the user must help to establish it
    ReachabilityFlagConnectionOnDemand = 1u << 5,   ///< certain interfaces establish it
    ReachabilityFlagIsLocalAddress = 1u << 16,      ///< an address of this machine
    ReachabilityFlagIsDirect = 1u << 17,            ///< on a link of this machine, no gateway
};

} // namespace velmora
