// SPDX-License-Identifier: Apache-2.0
#include "HelperChannel.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace velmora {

namespace {

union FileRoom {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(int))];
};

int takeFile(msghdr *header) {
    const cmsghdr *attached = CMSG_FIRSTHDR(header);
    if (!attached || attached->cmsg_level != SOL_SOCKET || attached->cmsg_type != SCM_RIGHTS ||
        attached->cmsg_len != CMSG_LEN(sizeof(int)))
        return -1;
    int file = -1;
    std::memcpy(&file, CMSG_DATA(attached), sizeof file);
    return file;
}

} // namespace

HelperChannel::HelperChannel(int socket, WhenFull whenFull)
    : m_socket(socket), m_whenFull(whenFull) {}

HelperChannel::~HelperChannel() {
    ::close(m_socket);
}

bool HelperChannel::send(const HelperMessage &message, int file) {
    iovec part{const_cast<HelperMessage *>(&message), sizeof message};
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    FileRoom room{};
    if (file >= 0) {
        header.msg_control = room.bytes;
        header.msg_controllen = sizeof room.bytes;
        cmsghdr *attached = CMSG_FIRSTHDR(&header);
        attached->cmsg_level = SOL_SOCKET;
        attached->cmsg_type = SCM_RIGHTS;
        attached->cmsg_len = CMSG_LEN(sizeof file);
        std::memcpy(CMSG_DATA(attached), &file, sizeof file);
    }
    const int flags = MSG_NOSIGNAL | (m_whenFull == WhenFull::Drops ? MSG_DONTWAIT : 0);
    ssize_t sent = -1;
    do
        sent = ::sendmsg(m_socket, &header, flags);
    while (sent < 0 && errno == EINTR);
    return sent == ssize_t(sizeof message);
}

bool HelperChannel::receive(HelperMessage *message, int *file) {
    iovec part{message, sizeof *message};
    msghdr header{};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    FileRoom room{};
    if (file) {
        *file = -1;
        header.msg_control = room.bytes;
        header.msg_controllen = sizeof room.bytes;
    }
    ssize_t received = -1;
    do
        received = ::recvmsg(m_socket, &header, MSG_CMSG_CLOEXEC);
    while (received < 0 && errno == EINTR);
    if (file && received >= 0)
        *file = takeFile(&header);
    return received == ssize_t(sizeof *message);
}

bool HelperChannel::waitForMessage(std::chrono::milliseconds longest) const {
    pollfd entry{m_socket, POLLIN, 0};
    return ::poll(&entry, 1, int(longest.count())) > 0;
}

bool HelperChannel::waitForMessageOrEnd(int process) const {
    pollfd entries[]{{m_socket, POLLIN, 0}, {process, POLLIN, 0}};
    while (::poll(entries, 2, -1) < 0 && errno == EINTR) {
    }
    return (entries[1].revents & POLLIN) == 0;
}

void HelperChannel::hangUp() {
    ::shutdown(m_socket, SHUT_RDWR);
}

} // namespace velmora
