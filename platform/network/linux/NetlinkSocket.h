// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

#include <functional>
#include <initializer_list>

struct mnl_socket;
struct nlmsghdr;

namespace velmora {

/// A NETLINK_ROUTE socket. It is used either for requests, which the kernel answers at once, or for
/// the events of the groups that it has joined. One thread at a time.
class NetlinkSocket {
public:
    using Handler = std::function<void(const nlmsghdr *)>;

    NetlinkSocket();
    ~NetlinkSocket();
    NetlinkSocket(const NetlinkSocket &) = delete;
    NetlinkSocket &operator=(const NetlinkSocket &) = delete;

    /// False when the constructor could not open the socket, and has set errno.
    bool isOpen() const { return m_socket != nullptr; }
    int descriptor() const;

    /// Subscribes to the events of multicast groups (RTNLGRP_*). False, with errno set, when the
    /// kernel refuses.
    bool join(std::initializer_list<int> groups);

    /// Sends a request and calls the handler for every message of the answer. False, with errno
    /// set, when the kernel answers with an error or not in time.
    bool request(nlmsghdr *message, const Handler &handler);

    /// Discards all received events, and the error state (ENOBUFS) that tells of lost ones.
    void drain();

private:
    mnl_socket *m_socket = nullptr;
    quint32 m_sequence = 0;
};

} // namespace velmora
