// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "tests/support/FreshProcess.h"

#include <QtCore/QJsonArray>

namespace velmora::test {

/// A fresh process whose deployment points to a real ad server on loopback, whose authority it
/// trusts.
class LocalAdServer : public FreshProcess {
protected:
    LocalAdServer();

    /// The deployment that finds the server.
    Deployment deployment() const;

    /// A banner ad whose picture the server holds as "/media/NAME.gif".
    QJsonObject banner(const QString &name, double priority = 1);
    /// A video ad; the server holds some bytes as its video and its still.
    QJsonObject video(const QString &name, double priority = 1);
    /// Serves these placements as the reply.
    void serve(const QJsonArray &banners, const QJsonArray &videos = {});
    void serveTable(const QJsonObject &table);

    adserver::AdServer server;
    QString baseUrl;
};

/// The path of the ad request.
inline const QString TablePath = QStringLiteral("/api/v1/banners");

} // namespace velmora::test
