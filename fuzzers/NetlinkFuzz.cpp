// SPDX-License-Identifier: Apache-2.0
// The kernel's messages about routes, addresses and links: nothing is read beyond a message's end.
#include "Fuzzing.h"
#include "platform/network/linux/NetlinkReply.h"

#include <libmnl/libmnl.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <tuple>
#include <vector>

using namespace velmora;

namespace {

/// What the first message says when these bytes follow it. Other messages are not looked at, as
/// libFuzzer finds them alone as well.
auto read(const QByteArray &message, char following) {
    std::vector<nlmsghdr> buffer(size_t(message.size()) / sizeof(nlmsghdr) + 4);
    const auto bytes = as_writable_bytes(std::span(buffer));
    std::ranges::fill(bytes, std::byte(following));
    std::memcpy(bytes.data(), message.constData(), size_t(message.size()));
    const nlmsghdr *first = buffer.data();
    const NetlinkReply::Route route = NetlinkReply::route(first).value_or(NetlinkReply::Route{-1});
    return std::tuple(route.type, route.link, route.gateway, NetlinkReply::linkOfAddress(first),
                      NetlinkReply::linkFlags(first));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    nlmsghdr head{};
    std::memcpy(&head, data, std::min(size, sizeof head));
    const size_t length = NLMSG_ALIGN(size_t(head.nlmsg_len)); // messages are padded
    if (head.nlmsg_len < sizeof head || length > size)
        return 0; // mnl_cb_run() hands out no such message
    const QByteArray message = fuzz::bytesOf(data, length);
    fuzz::require(read(message, 0) == read(message, '\xff'), "what follows does not matter");
    return 0;
}
