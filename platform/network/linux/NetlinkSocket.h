// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <functional>
#include <initializer_list>

struct mnl_socket;
struct nlmsghdr;

namespace velmora {

/// A routing socket of the kernel. Requests are answered by the kernel at once; a socket that
/// joined groups is for listening only. One thread at a time.
class NetlinkSocket {
public:
    using Handler = std::function<void(const nlmsghdr *)>;

    NetlinkSocket();
    ~NetlinkSocket();
    NetlinkSocket(const NetlinkSocket &) = delete;
    NetlinkSocket &operator=(const NetlinkSocket &) = delete;

    /// False, with errno set, when the kernel gave no socket.
    bool isOpen() const { return m_socket != nullptr; }
    int descriptor() const;

    /// Asks to be told of the events of these groups. False, with errno set, when refused.
    bool join(std::initializer_list<int> groups);

    /// Sends a request and hands every message of the answer to the handler. False, with errno
    /// set, when the kernel answered with an error.
    bool request(nlmsghdr *message, const Handler &handler);

    /// Throws away the events that wait, and the mark that some were lost.
    void drain();

private:
    mnl_socket *m_socket = nullptr;
    quint32 m_sequence = 0;
};

} // namespace velmora
