// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "tests/support/FreshProcess.h"

#include <QtCore/QJsonArray>

namespace velmora::test {

/// A fresh process with an ad server of its own on the loopback interface, whose certificate
/// authority it trusts.
class LocalAdServer : public FreshProcess {
protected:
    LocalAdServer();

    /// The deployment values that lead to the server.
    Deployment deployment() const;

    /// Makes the internet unreachable for the framework; useDeployment(deployment()) undoes it.
    void goOffline();

    /// A banner ad; the server serves its picture as "/media/NAME.gif".
    QJsonObject banner(const QString &name, double priority = 1);
    /// A video ad; the server serves the first bytes of a film as its video ("/media/NAME.mp4") and its still
    /// ("/media/NAME.png").
    QJsonObject video(const QString &name, double priority = 1);
    /// Sets the reply to the ad request.
    void serve(const QJsonArray &banners, const QJsonArray &videos = {});

    adserver::AdServer server;
    QString baseUrl;
};

/// The path of the ad request.
inline const QString TablePath = QStringLiteral("/api/v1/banners");

} // namespace velmora::test
