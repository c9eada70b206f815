// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

namespace velmora {

/// What the system's route to a target is like: any combination of ReachabilityFlag values.
using ReachabilityFlags = quint32;

enum ReachabilityFlag : ReachabilityFlags {
    /// The route goes through a point-to-point link, for example a tunnel.
    ReachabilityFlagTransientConnection = 1u << 0,
    /// There is a route to the target.
    ReachabilityFlagReachable = 1u << 1,
    /// A connection must be established first.
    ReachabilityFlagConnectionRequired = 1u << 2,
    /// Any traffic establishes that connection.
    ReachabilityFlagConnectionOnTraffic = 1u << 3,
    /// The user must act to establish that connection.
    ReachabilityFlagInterventionRequired = 1u << 4,
    /// Certain functions of the system establish that connection.
    ReachabilityFlagConnectionOnDemand = 1u << 5,
    /// The target is this machine.
    ReachabilityFlagIsLocalAddress = 1u << 16,
    /// There is no gateway on the way to the target.
    ReachabilityFlagIsDirect = 1u << 17,
};

} // namespace velmora
