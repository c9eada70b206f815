// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

#include <memory>

namespace velmora {

/// Makes and configures the network managers of a UrlSession. Worker thread only, except for the
/// constructor.
class NetworkAccess {
public:
    explicit NetworkAccess(UrlSession::Configuration configuration);
    ~NetworkAccess();

    /// The manager that reuses its connections. Made on first use.
    QNetworkAccessManager &shared();

    /// A new manager that has no connection yet. It shares the cookies of shared().
    std::unique_ptr<QNetworkAccessManager> fresh();

    /// The TLS configuration for a URL's host, with the authorities that its certificate is
    /// verified against.
    QSslConfiguration tlsFor(const QUrl &url);

    /// Destroys the shared manager and its connections. Only while no transfer uses it.
    void closeConnections() { m_shared.reset(); }

private:
    std::unique_ptr<QNetworkAccessManager> newManager() const;

    const UrlSession::Configuration m_configuration;
    std::unique_ptr<QNetworkAccessManager> m_shared;
    QList<QSslCertificate> m_privateAuthorities;
};

} // namespace velmora
