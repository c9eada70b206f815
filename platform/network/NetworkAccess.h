// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "UrlSession.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

#include <memory>

namespace velmora {

/// How a session reaches the network: its network managers and what they trust. Worker thread
/// only, but for the constructor.
class NetworkAccess {
public:
    explicit NetworkAccess(UrlSession::Configuration configuration);
    ~NetworkAccess();

    /// The manager whose connections are kept and shared, made on first use.
    QNetworkAccessManager &shared();

    /// A manager without any connection, with the shared one's cookies.
    std::unique_ptr<QNetworkAccessManager> fresh();

    /// What a host's certificate is verified against.
    QSslConfiguration tlsFor(const QUrl &url);

    /// Closes the shared connections; only while nobody uses them.
    void closeConnections() { m_shared.reset(); }

private:
    std::unique_ptr<QNetworkAccessManager> newManager() const;

    const UrlSession::Configuration m_configuration;
    std::unique_ptr<QNetworkAccessManager> m_shared;
    QList<QSslCertificate> m_privateAuthorities;
};

} // namespace velmora
