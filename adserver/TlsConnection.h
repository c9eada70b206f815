// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>

#include <httplib.h>

#include <array>
#include <memory>

namespace velmora::adserver {

/// One client's connection, server side: TLS over a blocking socket, keeping a copy of everything
/// the HTTP parser consumes. Internal to the server; belongs to the thread that serves it.
class TlsConnection final : public httplib::Stream {
public:
    /// Takes over the socket, which is closed with the connection.
    TlsConnection(socket_t socket, SSL_CTX *context);
    ~TlsConnection() override;
    TlsConnection(const TlsConnection &) = delete;
    TlsConnection &operator=(const TlsConnection &) = delete;

    /// The connection that a request came in on, from the request's `ssl` field.
    static TlsConnection *of(const SSL *ssl);

    /// Performs the handshake. False if the client left, spoke no TLS or refused the certificate.
    bool accept();

    /// Waits until the next request begins. False after the timeout or when the client has left.
    bool waitForRequest(int timeoutMs);

    /// True from the second request on.
    bool isReused() const { return m_requests > 1; }

    /// Consumes exactly so many bytes. False if the client stops short.
    bool readBody(qint64 length);

    /// Consumes what has arrived already and was not asked for yet.
    void consumeBuffered();

    /// What has been consumed since the last call of takeRecorded().
    const QByteArray &recorded() const { return m_recorded; }
    QByteArray takeRecorded();

    /// Waits for so long, or until the client or stop() has closed the connection (then true).
    bool waitForClose(int milliseconds) const;

    /// Lets every further write fail; the connection is closed once the request is done with.
    void breakOff() { m_broken = true; }
    /// Like breakOff(), and the closing resets the connection.
    void breakOffWithReset();
    /// Sends the current answer, then closes.
    void closeAfterAnswer() { m_last = true; }
    bool isLast() const { return m_broken || m_last; }

    /// Takes leave as ordered: orderly, or with a reset. May block until the client reads or the
    /// socket is shut down, so it comes while stop() still can do that.
    void finish();

    const SSL *ssl() const { return m_ssl.get(); }

    bool is_readable() const override;
    bool is_writable() const override { return !m_broken; }
    ssize_t read(char *data, size_t size) override;
    ssize_t write(const char *data, size_t size) override;
    void get_remote_ip_and_port(std::string &ip, int &port) const override;
    void get_local_ip_and_port(std::string &ip, int &port) const override;
    socket_t socket() const override { return m_socket; }

private:
    bool fill();

    struct SslDeleter {
        void operator()(SSL *ssl) const { SSL_free(ssl); }
    };

    socket_t m_socket;
    std::unique_ptr<SSL, SslDeleter> m_ssl;
    std::array<char, 16 * 1024> m_buffer;
    size_t m_bufferUsed = 0;
    size_t m_bufferEnd = 0;
    QByteArray m_recorded;
    int m_requests = 0;
    bool m_broken = false;
    bool m_last = false;
    bool m_tlsUsable = false;
    bool m_reset = false;
};

} // namespace velmora::adserver
