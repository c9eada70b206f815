// SPDX-License-Identifier: Apache-2.0
#include "NetlinkSocket.h"

#include <libmnl/libmnl.h>
#include <sys/time.h>

#include <array>
#include <cerrno>

namespace velmora {

namespace {

// The largest message that the kernel sends.
constexpr std::size_t BufferSize = 32768;

int forward(const nlmsghdr *message, void *handler) {
    (*static_cast<const NetlinkSocket::Handler *>(handler))(message);
    return MNL_CB_OK;
}

} // namespace

NetlinkSocket::NetlinkSocket() : m_socket(mnl_socket_open2(NETLINK_ROUTE, SOCK_CLOEXEC)) {
    if (!m_socket)
        return;
    // The kernel has answered when sendto() returns. The time-out is for a kernel that does not.
    const timeval limit{0, 200'000};
    setsockopt(descriptor(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    if (mnl_socket_bind(m_socket, 0, MNL_SOCKET_AUTOPID) < 0) {
        const int reason = errno;
        mnl_socket_close(m_socket);
        m_socket = nullptr;
        errno = reason;
    }
}

NetlinkSocket::~NetlinkSocket() {
    if (m_socket)
        mnl_socket_close(m_socket);
}

int NetlinkSocket::descriptor() const {
    return mnl_socket_get_fd(m_socket);
}

bool NetlinkSocket::join(std::initializer_list<int> groups) {
    for (int group : groups) {
        if (mnl_socket_setsockopt(m_socket, NETLINK_ADD_MEMBERSHIP, &group, sizeof group) < 0)
            return false;
    }
    return true;
}

bool NetlinkSocket::request(nlmsghdr *message, const Handler &handler) {
    // Only a dump has an end message of its own. The acknowledgement ends any other answer.
    message->nlmsg_flags |= NLM_F_REQUEST | NLM_F_ACK;
    message->nlmsg_seq = ++m_sequence;
    if (mnl_socket_sendto(m_socket, message, message->nlmsg_len) < 0)
        return false;
    alignas(nlmsghdr) std::array<char, BufferSize> buffer;
    for (;;) {
        const ssize_t size = mnl_socket_recvfrom(m_socket, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0)
            return false;
        const int result =
            mnl_cb_run(buffer.data(), static_cast<std::size_t>(size), m_sequence,
                       mnl_socket_get_portid(m_socket), forward, const_cast<Handler *>(&handler));
        if (result < 0)
            return false;
        if (result == MNL_CB_STOP)
            return true;
    }
}

void NetlinkSocket::drain() {
    std::array<char, BufferSize> buffer;
    ssize_t size = 0;
    do {
        size = recv(descriptor(), buffer.data(), buffer.size(), MSG_DONTWAIT);
    } while (size >= 0 || errno == EINTR || errno == ENOBUFS);
}

} // namespace velmora
