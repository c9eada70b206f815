// SPDX-License-Identifier: Apache-2.0
#include "adserver/AdHttpServer.h"

#include <openssl/pem.h>

#include <limits>

namespace velmora::adserver {

namespace {

constexpr int KeepAliveSeconds = 30;
constexpr size_t ThreadCount = 32;

struct BioDeleter {
    void operator()(BIO *bio) const { BIO_free(bio); }
};
struct CertificateDeleter {
    void operator()(X509 *certificate) const { X509_free(certificate); }
};
struct KeyDeleter {
    void operator()(EVP_PKEY *key) const { EVP_PKEY_free(key); }
};

std::unique_ptr<BIO, BioDeleter> readerOf(const QByteArray &pem) {
    return std::unique_ptr<BIO, BioDeleter>(
        BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
}

} // namespace

// Lists the socket for stopAndCloseAll() for as long as it is open. A closed one must not be
// listed: its number may already belong to another descriptor.
class AdHttpServer::Registration {
public:
    Registration(AdHttpServer &server, socket_t socket) : m_server(server), m_socket(socket) {
        const std::lock_guard lock(m_server.m_mutex);
        m_server.m_sockets.insert(m_socket);
        if (m_server.m_stopping)
            ::shutdown(m_socket, SHUT_RDWR);
    }
    ~Registration() {
        const std::lock_guard lock(m_server.m_mutex);
        m_server.m_sockets.erase(m_socket);
    }
    Registration(const Registration &) = delete;
    Registration &operator=(const Registration &) = delete;

private:
    AdHttpServer &m_server;
    socket_t m_socket;
};

AdHttpServer::AdHttpServer(SslContext context, Handler handler, Malformed malformed)
    : m_context(std::move(context)), m_malformed(std::move(malformed)) {
    new_task_queue = [] { return new httplib::ThreadPool(ThreadCount); };
    set_tcp_nodelay(true);
    set_keep_alive_timeout(KeepAliveSeconds);
    set_keep_alive_max_count(std::numeric_limits<int>::max());
    set_read_timeout(KeepAliveSeconds);
    set_write_timeout(KeepAliveSeconds);
    // Without this the library sets SO_REUSEPORT, and two servers could share one port.
    set_socket_options([](socket_t socket) {
        const int yes = 1;
        ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    set_pre_routing_handler([handle = std::move(handler)](const httplib::Request &request,
                                                          httplib::Response &response) {
        handle(*TlsConnection::of(request.ssl), response);
        return HandlerResponse::Handled;
    });
}

SslContext AdHttpServer::contextFor(const Identity &identity) {
    const auto certificateBio = readerOf(identity.certificatePem);
    const auto keyBio = readerOf(identity.keyPem);
    const std::unique_ptr<X509, CertificateDeleter> certificate(
        PEM_read_bio_X509(certificateBio.get(), nullptr, nullptr, nullptr));
    const std::unique_ptr<EVP_PKEY, KeyDeleter> key(
        PEM_read_bio_PrivateKey(keyBio.get(), nullptr, nullptr, nullptr));
    SslContext context(SSL_CTX_new(TLS_server_method()));
    if (!certificate || !key || !context ||
        SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) != 1 ||
        SSL_CTX_use_certificate(context.get(), certificate.get()) != 1 ||
        SSL_CTX_use_PrivateKey(context.get(), key.get()) != 1)
        return nullptr;
    return context;
}

void AdHttpServer::stopAndCloseAll() {
    stop();
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
    for (const socket_t socket : m_sockets)
        ::shutdown(socket, SHUT_RDWR);
}

bool AdHttpServer::process_and_close_socket(socket_t socket) {
    TlsConnection connection(socket, m_context.get());
    const Registration registration(*this, socket);
    if (connection.accept())
        serve(connection);
    connection.finish();
    return true;
}

void AdHttpServer::serve(TlsConnection &connection) {
    bool isAlive = true;
    while (isAlive && connection.waitForRequest(KeepAliveSeconds * 1000)) {
        bool isClosed = false;
        isAlive = process_request(connection, false, isClosed, [&](httplib::Request &request) {
            request.ssl = connection.ssl();
        });
        // The handler has taken the recorded bytes of its request. Bytes that are still there were
        // refused by the parser, and where the next request begins is unknown.
        if (!connection.recorded().isEmpty()) {
            connection.consumeBuffered();
            m_malformed(connection.takeRecorded());
            break;
        }
        isAlive = isAlive && !isClosed && !connection.isLast();
    }
}

} // namespace velmora::adserver
