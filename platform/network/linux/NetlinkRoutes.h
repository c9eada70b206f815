// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "NetlinkSocket.h"
#include "RouteMonitor.h"

#include <optional>

namespace velmora {

/// Asks the kernel how it would route to an address now. One thread at a time.
class NetlinkRoutes {
public:
    /// False, with errno set by the construction, when the kernel cannot be asked.
    bool isOpen() const { return m_socket.isOpen(); }

    /// 0 when the kernel knows no way or cannot be asked.
    ReachabilityFlags flags(const QHostAddress &target);

    /// The stronger of two answers for one target: without a connection to establish before
    /// with one, and either before none.
    static ReachabilityFlags better(ReachabilityFlags first, ReachabilityFlags second);

private:
    struct Route {
        int type = 0;
        int link = 0;
        bool gateway = false;
    };

    ReachabilityFlags internetFlags(bool onlyIpv6);
    ReachabilityFlags localNetworkFlags();
    ReachabilityFlags hostFlags(const QHostAddress &target);
    std::optional<Route> route(const QHostAddress &target);
    unsigned linkFlags(int link);

    NetlinkSocket m_socket;
};

} // namespace velmora
