// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"
#include "tests/support/FreshProcess.h"

#include <QtCore/QJsonArray>
#include <QtCore/QMap>

namespace velmora::test {

/// A fresh process with an ad server of its own on the loopback interface, whose certificate
/// authority it trusts.
class LocalAdServer : public FreshProcess {
protected:
    LocalAdServer();

    /// Makes the internet unreachable for the framework, or reachable again.
    void goOffline();
    void goOnline();

    /// A banner ad; the server serves its picture as "/media/NAME.gif".
    QJsonObject banner(QAnyStringView name, double priority = 1);
    /// A video ad; the server serves the beginning of a film ("/media/NAME.mp4") and its still
    /// ("/media/NAME.png").
    QJsonObject video(QAnyStringView name, double priority = 1);
    /// Sets the reply to the ad request.
    void serve(const QJsonArray &banners, const QJsonArray &videos = {});

    adserver::AdServer server;
    QString baseUrl;

    /// Waits until what is being read from the disk or written to it is done.
    static void waitForDisk();

private:
    /// The deployment values that lead to the server.
    Deployment deployment() const;
};

/// Environment variables that lead a child process to an ad server.
/// @param folder gets a file with the certificate of the server's authority
QMap<QString, QString> variablesFor(const adserver::AdServer &server, const QString &folder);

/// The path of the ad request.
inline const QString TablePath = QStringLiteral("/api/v1/banners");

/// The first bytes of a film, by which it is recognised.
inline const QByteArray FilmHead = QByteArrayLiteral("\0\0\0\x18"
                                                     "ftypisom");

} // namespace velmora::test
