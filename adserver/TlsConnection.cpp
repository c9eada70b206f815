// SPDX-License-Identifier: Apache-2.0
#include "adserver/TlsConnection.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace velmora::adserver {

namespace {

constexpr int ConnectionIndex = 0; // OpenSSL's slot for the application's own data

// POLLRDHUP, where there is one, also reports a client that has only closed its sending side.
#ifdef POLLRDHUP
constexpr short ClosedEvents = POLLRDHUP;
#else
constexpr short ClosedEvents = POLLHUP;
#endif

short pollSocket(socket_t socket, short events, int milliseconds) {
    pollfd entry{socket, events, 0};
    return ::poll(&entry, 1, milliseconds) > 0 ? entry.revents : short(0);
}

// Repeats a blocking call that was interrupted by a signal.
template<typename Call>
int uninterrupted(Call call) {
    int result = 0;
    do {
        ERR_clear_error();
        errno = 0;
        result = call();
    } while (result <= 0 && errno == EINTR);
    return result;
}

} // namespace

TlsConnection::TlsConnection(socket_t socket, SSL_CTX *context)
    : m_socket(socket), m_ssl(SSL_new(context)) {
    if (m_ssl) {
        SSL_set_fd(m_ssl.get(), socket);
        SSL_set_ex_data(m_ssl.get(), ConnectionIndex, this);
    }
}

TlsConnection::~TlsConnection() {
    m_ssl.reset();
    ::close(m_socket);
}

void TlsConnection::finish() {
    if (m_reset) {
        const linger abort{1, 0};
        ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
        return;
    }
    if (m_tlsUsable)
        SSL_shutdown(m_ssl.get());
    ::shutdown(m_socket, SHUT_WR);
}

TlsConnection *TlsConnection::of(const SSL *ssl) {
    return static_cast<TlsConnection *>(SSL_get_ex_data(ssl, ConnectionIndex));
}

bool TlsConnection::accept() {
    m_tlsUsable = m_ssl && uninterrupted([this] { return SSL_accept(m_ssl.get()); }) == 1;
    return m_tlsUsable;
}

bool TlsConnection::waitForRequest(int timeoutMs) {
    ++m_requests;
    if (m_bufferUsed < m_bufferEnd || SSL_pending(m_ssl.get()) > 0)
        return true;
    return pollSocket(m_socket, POLLIN, timeoutMs) != 0 && fill();
}

bool TlsConnection::readBody(qint64 length) {
    std::array<char, 16 * 1024> chunk;
    while (length > 0) {
        const auto wanted = std::min<qint64>(length, static_cast<qint64>(chunk.size()));
        const ssize_t got = read(chunk.data(), static_cast<size_t>(wanted));
        if (got <= 0)
            return false;
        length -= got;
    }
    return true;
}

void TlsConnection::consumeBuffered() {
    m_recorded.append(m_buffer.data() + m_bufferUsed,
                      static_cast<qsizetype>(m_bufferEnd - m_bufferUsed));
    m_bufferUsed = m_bufferEnd;
}

QByteArray TlsConnection::takeRecorded() {
    return std::exchange(m_recorded, QByteArray());
}

bool TlsConnection::waitForClose(int milliseconds) const {
    return pollSocket(m_socket, ClosedEvents, milliseconds) != 0;
}

void TlsConnection::breakOffWithReset() {
    m_reset = true;
    m_broken = true;
}

bool TlsConnection::is_readable() const {
    return m_bufferUsed < m_bufferEnd || pollSocket(m_socket, POLLIN, 0) != 0;
}

bool TlsConnection::fill() {
    if (m_broken)
        return false;
    const int size = static_cast<int>(m_buffer.size());
    const int got = uninterrupted([&] { return SSL_read(m_ssl.get(), m_buffer.data(), size); });
    if (got <= 0) {
        m_tlsUsable = SSL_get_error(m_ssl.get(), got) == SSL_ERROR_ZERO_RETURN;
        m_broken = true;
        return false;
    }
    m_bufferUsed = 0;
    m_bufferEnd = static_cast<size_t>(got);
    return true;
}

ssize_t TlsConnection::read(char *data, size_t size) {
    if (m_bufferUsed == m_bufferEnd && !fill())
        return -1;
    const size_t count = std::min(size, m_bufferEnd - m_bufferUsed);
    std::memcpy(data, m_buffer.data() + m_bufferUsed, count);
    m_recorded.append(data, static_cast<qsizetype>(count));
    m_bufferUsed += count;
    return static_cast<ssize_t>(count);
}

ssize_t TlsConnection::write(const char *data, size_t size) {
    if (m_broken)
        return -1;
    const int length = static_cast<int>(std::min<size_t>(size, 1 << 20));
    const int sent = uninterrupted([&] { return SSL_write(m_ssl.get(), data, length); });
    if (sent <= 0) {
        m_tlsUsable = false;
        m_broken = true;
        return -1;
    }
    return sent;
}

void TlsConnection::get_remote_ip_and_port(std::string &ip, int &port) const {
    ip = "127.0.0.1";
    port = 0;
}

void TlsConnection::get_local_ip_and_port(std::string &ip, int &port) const {
    get_remote_ip_and_port(ip, port);
}

} // namespace velmora::adserver
