// SPDX-License-Identifier: Apache-2.0
#include "NetworkAccess.h"

#include "ProcessRoot.h"

#include <QtNetwork/QNetworkCookieJar>

#include <mutex>
#include <utility>

namespace velmora {

NetworkAccess::NetworkAccess(UrlSession::Configuration configuration)
    : m_configuration(std::move(configuration)) {}

NetworkAccess::~NetworkAccess() = default;

QNetworkAccessManager &NetworkAccess::shared() {
    if (!m_shared)
        m_shared = newManager();
    return *m_shared;
}

std::unique_ptr<QNetworkAccessManager> NetworkAccess::fresh() {
    auto manager = newManager();
    QNetworkCookieJar *cookies = shared().cookieJar();
    manager->setCookieJar(cookies);
    // setCookieJar() has made the new manager the jar's owner.
    cookies->setParent(m_shared.get());
    return manager;
}

std::unique_ptr<QNetworkAccessManager> NetworkAccess::newManager() const {
    auto manager = std::make_unique<QNetworkAccessManager>();
    manager->setTransferTimeout(m_configuration.idleTimeoutMs);
    // The first manager constructs static objects of Qt, so this must come after it; see
    // dropAtExit().
    static std::once_flag once;
    std::call_once(once, &ProcessRoot::dropAtExit);
    return manager;
}

QSslConfiguration NetworkAccess::tlsFor(const QUrl &url) {
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    if (m_configuration.privateHost.isEmpty() || url.host() != m_configuration.privateHost)
        return tls;
    if (m_privateAuthorities.isEmpty())
        m_privateAuthorities =
            QSslCertificate::fromData(m_configuration.privateAuthorities, QSsl::Pem);
    if (!m_privateAuthorities.isEmpty())
        tls.setCaCertificates(m_privateAuthorities);
    return tls;
}

} // namespace velmora
