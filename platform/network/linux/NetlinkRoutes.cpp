// SPDX-License-Identifier: Apache-2.0
#include "NetlinkRoutes.h"

#include <libmnl/libmnl.h>
#include <linux/if.h>
#include <linux/if_addr.h>
#include <linux/rtnetlink.h>

#include <array>
#include <set>

namespace velmora {

namespace {

// Stands for "any host on the internet". The kernel reports 0.0.0.0 itself as local, even without
// any network. For a public address that no machine has a special route to, it reports the default
// route. It applies metrics, policy rules and dead next hops in doing so, which would be much work
// with the routing table.
IpAddress anyIpv4Host() {
    return IpAddress(QStringLiteral("128.0.0.1"));
}

IpAddress anyIpv6Host() {
    return IpAddress(QStringLiteral("2000::1"));
}

template<typename Body>
class Message {
public:
    Message(quint16 type, quint16 flags) : m_header(mnl_nlmsg_put_header(m_buffer.data())) {
        m_header->nlmsg_type = type;
        m_header->nlmsg_flags = flags;
        m_body = static_cast<Body *>(mnl_nlmsg_put_extra_header(m_header, sizeof(Body)));
    }

    nlmsghdr *header() { return m_header; }
    Body *operator->() { return m_body; }

private:
    alignas(nlmsghdr) std::array<char, 256> m_buffer{};
    nlmsghdr *m_header;
    Body *m_body;
};

bool isRoutable(int type) {
    switch (type) {
    case RTN_UNICAST:
    case RTN_LOCAL:
    case RTN_BROADCAST:
    case RTN_ANYCAST:
    case RTN_MULTICAST:
        return true;
    default:
        return false;
    }
}

} // namespace

ReachabilityFlags NetlinkRoutes::better(ReachabilityFlags first, ReachabilityFlags second) {
    const auto rank = [](ReachabilityFlags flags) {
        return !(flags & ReachabilityFlagReachable)         ? 0
               : flags & ReachabilityFlagConnectionRequired ? 1
                                                            : 2;
    };
    return rank(second) > rank(first) ? second : first;
}

ReachabilityFlags NetlinkRoutes::flags(const IpAddress &target) {
    if (!m_socket.isOpen() || target.isNull())
        return 0;
    const IpAddress address = target.unmapped();
    if (address.isAny())
        return internetFlags(address.family() == AF_INET6);
    if (address.text() == QLatin1String("169.254.0.0"))
        return localNetworkFlags();
    return hostFlags(address);
}

// IPv6 is tried second: a machine may have an IPv6 network only.
ReachabilityFlags NetlinkRoutes::internetFlags(bool onlyIpv6) {
    const ReachabilityFlags ipv4 = onlyIpv6 ? 0 : hostFlags(anyIpv4Host());
    if (ipv4 & ReachabilityFlagReachable && !(ipv4 & ReachabilityFlagConnectionRequired))
        return ipv4;
    return better(ipv4, hostFlags(anyIpv6Host()));
}

// 169.254.0.0 stands for the local network. It rarely has a route of its own, so any running link
// with an IPv4 address counts, except loopback and point-to-point links.
ReachabilityFlags NetlinkRoutes::localNetworkFlags() {
    Message<ifaddrmsg> request(RTM_GETADDR, NLM_F_DUMP);
    request->ifa_family = AF_INET;
    std::set<int> links;
    m_socket.request(request.header(), [&links](const nlmsghdr *message) {
        if (const auto link = NetlinkReply::linkOfAddress(message))
            links.insert(*link);
    });
    for (int link : links) {
        const unsigned state = linkFlags(link);
        if (state & IFF_UP && state & IFF_RUNNING && !(state & (IFF_LOOPBACK | IFF_POINTOPOINT)))
            return ReachabilityFlagReachable | ReachabilityFlagIsDirect;
    }
    return 0;
}

ReachabilityFlags NetlinkRoutes::hostFlags(const IpAddress &target) {
    const std::optional<NetlinkReply::Route> found = route(target);
    if (!found)
        return 0;
    const unsigned state = linkFlags(found->link);
    if (!(state & IFF_UP))
        return 0;
    ReachabilityFlags flags = ReachabilityFlagReachable;
    if (!found->gateway)
        flags |= ReachabilityFlagIsDirect;
    if (found->type == RTN_LOCAL)
        return flags | ReachabilityFlagIsLocalAddress;
    // The kernel keeps the routes of a link that has lost its carrier.
    const bool running = state & IFF_RUNNING;
    if (!(state & IFF_POINTOPOINT))
        return running ? flags : 0;
    return running
               ? flags | ReachabilityFlagTransientConnection
               : flags | ReachabilityFlagTransientConnection | ReachabilityFlagConnectionRequired;
}

std::optional<NetlinkReply::Route> NetlinkRoutes::route(const IpAddress &target) {
    Message<rtmsg> request(RTM_GETROUTE, 0);
    if (const std::optional<in_addr> address = target.ipv4()) {
        request->rtm_family = AF_INET;
        request->rtm_dst_len = 32;
        mnl_attr_put(request.header(), RTA_DST, sizeof *address, &*address);
    } else {
        request->rtm_family = AF_INET6;
        request->rtm_dst_len = 128;
        mnl_attr_put(request.header(), RTA_DST, sizeof target.ipv6(), &target.ipv6());
        mnl_attr_put_u32(request.header(), RTA_OIF, target.interfaceNumber());
    }

    std::optional<NetlinkReply::Route> found;
    const bool answered = m_socket.request(request.header(), [&found](const nlmsghdr *message) {
        if (const auto answer = NetlinkReply::route(message))
            found = answer;
    });
    return answered && found && isRoutable(found->type) ? found : std::nullopt;
}

unsigned NetlinkRoutes::linkFlags(int link) {
    Message<ifinfomsg> request(RTM_GETLINK, 0);
    request->ifi_index = link;
    mnl_attr_put_u32(request.header(), IFLA_EXT_MASK, RTEXT_FILTER_SKIP_STATS);
    unsigned flags = 0;
    m_socket.request(request.header(), [&flags](const nlmsghdr *message) {
        flags = NetlinkReply::linkFlags(message).value_or(flags);
    });
    return flags;
}

} // namespace velmora
