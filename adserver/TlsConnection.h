// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>

#include <httplib.h>

#include <array>
#include <memory>

namespace velmora::adserver {

/// The server's side of one connection: TLS over a blocking socket. Keeps a copy of every byte that
/// the HTTP parser consumes. Internal to the ad server; used by the thread that serves it.
class TlsConnection final : public httplib::Stream {
public:
    /// Takes ownership of the socket; the destructor closes it.
    TlsConnection(socket_t socket, SSL_CTX *context);
    ~TlsConnection() override;
    TlsConnection(const TlsConnection &) = delete;
    TlsConnection &operator=(const TlsConnection &) = delete;

    /// The connection of a request, by the request's `ssl` field.
    static TlsConnection *of(const SSL *ssl);

    /// Performs the TLS handshake. False if the client disconnected, does not speak TLS or refused
    /// the certificate.
    bool accept();

    /// Waits until the next request begins. False after the timeout or when the client
    /// disconnected.
    bool waitForRequest(int timeoutMs);

    /// True from the connection's second request on.
    bool isReused() const { return m_requests > 1; }

    /// Consumes exactly so many bytes. False if the client sends fewer.
    bool readBody(qint64 length);

    /// Consumes the bytes that have been received and decrypted but not read.
    void consumeBuffered();

    /// The bytes consumed since the last call of takeRecorded().
    const QByteArray &recorded() const { return m_recorded; }
    QByteArray takeRecorded();

    /// Waits for so long; true at once when the client or the server's stop() closes the
    /// connection.
    bool waitForClose(int milliseconds) const;

    /// Makes every further write fail; the connection is closed after the current request.
    void breakOff() { m_broken = true; }
    /// Like breakOff(), but the connection is reset (TCP RST).
    void breakOffWithReset();
    /// The connection is closed after the current answer has been sent.
    void closeAfterAnswer() { m_last = true; }
    bool isLast() const { return m_broken || m_last; }

    /// Ends the connection, in good order or with a reset. May block until the client reads or the
    /// socket is shut down, so it must be called while the server's stop() can still do that.
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
