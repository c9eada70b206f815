// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "NetlinkReply.h"
#include "NetlinkSocket.h"
#include "RouteMonitor.h"

#include <optional>

namespace velmora {

/// Asks the kernel for its current route to an address. One thread at a time.
class NetlinkRoutes {
public:
    /// False when the constructor could not open a netlink socket, and has set errno.
    bool isOpen() const { return m_socket.isOpen(); }

    /// 0 when the kernel has no route or does not answer.
    ReachabilityFlags flags(const IpAddress &target);

    /// The better one of two results for the same target. Reachable at once is better than
    /// reachable after a connection is established, which is better than unreachable.
    static ReachabilityFlags better(ReachabilityFlags first, ReachabilityFlags second);

private:
    ReachabilityFlags internetFlags(bool onlyIpv6);
    ReachabilityFlags localNetworkFlags();
    ReachabilityFlags hostFlags(const IpAddress &target);
    std::optional<NetlinkReply::Route> route(const IpAddress &target);
    unsigned linkFlags(int link);

    NetlinkSocket m_socket;
};

} // namespace velmora
