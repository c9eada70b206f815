// SPDX-License-Identifier: Apache-2.0
#include <Velmora/AdsMacHelper.h>

#include "Deployment.h"
#include "MachineIdentifier.h"
#include "RouteMonitor.h"

namespace velmora {

bool AdsMacHelper::isInternetConnection() {
    const ReachabilityFlags flags =
        RouteMonitor::query(IpAddress(Deployment::current().reachabilityProbe));
    return flags & ReachabilityFlagReachable && !(flags & ReachabilityFlagConnectionRequired);
}

QString AdsMacHelper::getSystemUUID() {
    // Not under ProcessRoot: it belongs to the machine and is the same in every process.
    // Never destroyed: another thread may be in exit().
    static const auto &systemUUID = *new QString(MachineIdentifier::uuid());
    return systemUUID;
}

} // namespace velmora
