// SPDX-License-Identifier: Apache-2.0
#include "adserver/AdServer.h"

#include "adserver/AdHttpServer.h"
#include "adserver/Responder.h"

#include <chrono>
#include <thread>

namespace velmora::adserver {

class AdServer::Private {
public:
    CertificateAuthority authority;
    Identity identity = authority.validLeaf();
    Campaign campaign;
    Faults faults;
    RequestLog log;
    Responder responder{campaign, faults, log};
    std::unique_ptr<AdHttpServer> http;
    std::thread listener; // the server does not link the framework and its threads
    QString baseUrl;
    QString error;
};

AdServer::AdServer() : m_d(std::make_unique<Private>()) {}

AdServer::~AdServer() {
    stop();
}

QString AdServer::start(quint16 port) {
    if (isRunning())
        return m_d->baseUrl;
    m_d->error.clear();
    SslContext context = AdHttpServer::contextFor(m_d->identity);
    if (!context) {
        m_d->error = QStringLiteral("no usable certificate and key");
        return {};
    }
    Responder *responder = &m_d->responder;
    auto http = std::make_unique<AdHttpServer>(
        std::move(context),
        [responder](TlsConnection &connection, httplib::Response &response) {
            responder->respond(connection, response);
        },
        [responder](const QByteArray &bytes) { responder->recordMalformed(bytes); });
    int bound = port;
    if (port == 0)
        bound = http->bind_to_any_port("127.0.0.1");
    else if (!http->bind_to_port("127.0.0.1", port))
        bound = -1;
    if (bound <= 0) {
        m_d->error = port == 0 ? QStringLiteral("no free port on 127.0.0.1")
                               : QStringLiteral("port %1 on 127.0.0.1 is taken").arg(port);
        return {};
    }
    m_d->http = std::move(http);
    m_d->listener = std::thread([server = m_d->http.get()] { server->listen_after_bind(); });
    // The library ignores stop() until its loop runs.
    while (!m_d->http->is_running())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    m_d->baseUrl = QStringLiteral("https://127.0.0.1:%1").arg(bound);
    return m_d->baseUrl;
}

void AdServer::stop() {
    if (!isRunning())
        return;
    m_d->http->stopAndCloseAll();
    m_d->listener.join();
    m_d->http.reset();
    m_d->baseUrl.clear();
}

bool AdServer::isRunning() const {
    return m_d->http != nullptr;
}

QString AdServer::baseUrl() const {
    return m_d->baseUrl;
}

QString AdServer::errorString() const {
    return m_d->error;
}

QByteArray AdServer::caPem() const {
    return m_d->authority.caPem();
}

const CertificateAuthority &AdServer::authority() const {
    return m_d->authority;
}

void AdServer::setIdentity(const Identity &identity) {
    m_d->identity = identity;
}

void AdServer::setObserver(const Observer &observer) {
    m_d->responder.setObserver(observer);
}

Campaign &AdServer::campaign() {
    return m_d->campaign;
}

Faults &AdServer::faults() {
    return m_d->faults;
}

RequestLog &AdServer::log() {
    return m_d->log;
}

} // namespace velmora::adserver
