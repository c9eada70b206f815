// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

struct nlmsghdr;

namespace velmora {

/// Reads the messages by which the kernel answers requests of routes, addresses and links. Of a
/// message nothing is read beyond its length. Each function gives nothing for a message of another
/// type, or one that is too short. Any thread.
class NetlinkReply {
public:
    struct Route {
        int type = 0; ///< RTN_*
        int link = 0; ///< index of the network interface
        bool gateway = false;
    };

    static std::optional<Route> route(const nlmsghdr *message);

    /// The index of the network interface that has the address.
    static std::optional<int> linkOfAddress(const nlmsghdr *message);

    /// The state of a network interface: IFF_* flags.
    static std::optional<unsigned> linkFlags(const nlmsghdr *message);
};

} // namespace velmora
