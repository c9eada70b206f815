// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/CertificateAuthority.h"
#include "adserver/TlsConnection.h"

#include <functional>
#include <memory>
#include <mutex>
#include <set>

namespace velmora::adserver {

struct SslContextDeleter {
    void operator()(SSL_CTX *context) const { SSL_CTX_free(context); }
};
using SslContext = std::unique_ptr<SSL_CTX, SslContextDeleter>;

/// The HTTP server: cpp-httplib's parser on TlsConnection, because the library's own connections
/// cannot be recorded, reset or interrupted. Internal to the ad server.
class AdHttpServer final : public httplib::Server {
public:
    /// Called for every request when its head has been read and its body has not, on one of the
    /// server's threads.
    using Handler = std::function<void(TlsConnection &connection, httplib::Response &response)>;
    /// Called with bytes that the parser has refused, on one of the server's threads.
    using Malformed = std::function<void(const QByteArray &bytes)>;

    AdHttpServer(SslContext context, Handler handler, Malformed malformed);

    /// A context that presents this identity; null if certificate or key cannot be used.
    static SslContext contextFor(const Identity &identity);

    /// Stops listening and shuts every connection down, which ends all blocking calls on it.
    void stopAndCloseAll();

private:
    class Registration;

    bool process_and_close_socket(socket_t socket) override;
    void serve(TlsConnection &connection);

    SslContext m_context;
    Malformed m_malformed;
    std::mutex m_mutex;
    std::set<socket_t> m_sockets;
    bool m_stopping = false;
};

} // namespace velmora::adserver
