// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

namespace velmora {

/// What the system's route to a target is like: any combination of ReachabilityFlag values.
using ReachabilityFlags = quint32;

enum ReachabilityFlag : ReachabilityFlags {
    ReachabilityFlagTransientConnection = 1u
                                          << 0,   ///< through a point-to-point link, as of a tunnel
    ReachabilityFlagReachable = 1u << 1,          ///< there is a route to the target
    ReachabilityFlagConnectionRequired = 1u << 2, ///< a connection must be established first
    ReachabilityFlagConnectionOnTraffic = 1u << 3,  ///< any traffic establishes that connection
    ReachabilityFlagInterventionRequired = 1u << 4, ///< the user must act to establish it
    ReachabilityFlagConnectionOnDemand = 1u << 5, ///< certain functions of the system establish it
    ReachabilityFlagIsLocalAddress = 1u << 16,    ///< the target is this machine
    ReachabilityFlagIsDirect = 1u << 17,          ///< no gateway is on the way to the target
};

} // namespace velmora
