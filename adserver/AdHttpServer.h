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

/// The HTTP server underneath: the library's parser on connections of our own, which it would not
/// let us record, reset or interrupt otherwise. Internal.
class AdHttpServer final : public httplib::Server {
public:
    /// Gets every request with its head read and its body still on the connection. Called on the
    /// server's threads.
    using Handler = std::function<void(TlsConnection &connection, httplib::Response &response)>;
    /// Gets the bytes that did not make a request the parser understands.
    using Malformed = std::function<void(const QByteArray &bytes)>;

    AdHttpServer(SslContext context, Handler handler, Malformed malformed);

    /// Null if the identity is unusable.
    static SslContext contextFor(const Identity &identity);

    /// Stops listening and closes every connection, whatever its thread is waiting for.
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
