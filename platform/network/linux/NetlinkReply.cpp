// SPDX-License-Identifier: Apache-2.0
#include "NetlinkReply.h"

#include <libmnl/libmnl.h>
#include <linux/if_addr.h>
#include <linux/rtnetlink.h>

namespace velmora {

namespace {

template<typename Body>
const Body *bodyOf(const nlmsghdr *message, int type) {
    const bool isRight =
        message->nlmsg_type == type && mnl_nlmsg_get_payload_len(message) >= sizeof(Body);
    return isRight ? static_cast<const Body *>(mnl_nlmsg_get_payload(message)) : nullptr;
}

int readAttribute(const nlattr *attribute, void *data) {
    auto &route = *static_cast<NetlinkReply::Route *>(data);
    const int type = mnl_attr_get_type(attribute);
    if (type == RTA_OIF && mnl_attr_validate(attribute, MNL_TYPE_U32) == 0)
        route.link = static_cast<int>(mnl_attr_get_u32(attribute));
    if (type == RTA_GATEWAY || type == RTA_VIA)
        route.gateway = true;
    return MNL_CB_OK;
}

} // namespace

std::optional<NetlinkReply::Route> NetlinkReply::route(const nlmsghdr *message) {
    const auto *body = bodyOf<rtmsg>(message, RTM_NEWROUTE);
    if (!body)
        return {};
    Route route;
    route.type = body->rtm_type;
    mnl_attr_parse(message, sizeof(rtmsg), readAttribute, &route);
    return route;
}

std::optional<int> NetlinkReply::linkOfAddress(const nlmsghdr *message) {
    const auto *body = bodyOf<ifaddrmsg>(message, RTM_NEWADDR);
    return body ? std::optional(static_cast<int>(body->ifa_index)) : std::nullopt;
}

std::optional<unsigned> NetlinkReply::linkFlags(const nlmsghdr *message) {
    const auto *body = bodyOf<ifinfomsg>(message, RTM_NEWLINK);
    return body ? std::optional(body->ifi_flags) : std::nullopt;
}

} // namespace velmora
