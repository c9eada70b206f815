// SPDX-License-Identifier: Apache-2.0
#include "tests/support/LocalAdServer.h"

#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

namespace velmora::test {

LocalAdServer::LocalAdServer() : baseUrl(server.start()) {
    EXPECT_FALSE(baseUrl.isEmpty()) << qPrintable(server.errorString());
    goOnline();
}

Deployment LocalAdServer::deployment() const {
    Deployment values = Deployment::builtIn();
    values.acsURL = baseUrl;
    values.storeLookupURL = baseUrl;
    values.reachabilityProbe = QStringLiteral("127.0.0.1");
    values.adServerAuthorities = server.caPem();
    return values;
}

QMap<QString, QString> variablesFor(const adserver::AdServer &server, const QString &folder) {
    QFile authority(folder + QStringLiteral("/ca.pem"));
    EXPECT_TRUE(authority.open(QIODevice::WriteOnly));
    authority.write(server.caPem());
    return {{QStringLiteral("VELMORA_AD_SERVER_URL"), server.baseUrl()},
            {QStringLiteral("VELMORA_AD_SERVER_CA"), authority.fileName()},
            {QStringLiteral("VELMORA_STORE_LOOKUP_URL"), server.baseUrl()},
            {QStringLiteral("VELMORA_REACHABILITY_PROBE"), QStringLiteral("127.0.0.1")}};
}

// The table that is being read is screened with the values that are replaced.
void LocalAdServer::waitForDisk() {
    auto *disk = ProcessRoot::existing<DiskQueue>();
    EXPECT_TRUE(!disk || disk->drain(std::chrono::seconds(10)));
    handleEvents();
}

void LocalAdServer::goOffline() {
    waitForDisk();
    Deployment values = deployment();
    values.reachabilityProbe = QStringLiteral("none"); // not an address, so never reachable
    Deployment::replace(values);
}

void LocalAdServer::goOnline() {
    waitForDisk();
    Deployment::replace(deployment());
}

QJsonObject LocalAdServer::banner(QAnyStringView anyName, double priority) {
    const QString name = anyName.toString();
    const QString path = QStringLiteral("/media/%1.gif").arg(name);
    server.campaign().setMedia(path, gif({Qt::red, Qt::blue}));
    return {{QStringLiteral("name"), name},
            {QStringLiteral("image_728x90"), path},
            {QStringLiteral("priority"), priority},
            {QStringLiteral("market_url"),
             QStringLiteral("https://apps.velmora-store.example/app/id%1").arg(name)}};
}

QJsonObject LocalAdServer::video(QAnyStringView anyName, double priority) {
    const QString name = anyName.toString();
    const QString file = QStringLiteral("/media/%1.mp4").arg(name);
    const QString still = QStringLiteral("/media/%1.png").arg(name);
    server.campaign().setMedia(file, FilmHead);
    server.campaign().setMedia(still, gif({Qt::green}));
    return {{QStringLiteral("VLMAppName"), name},
            {QStringLiteral("video_file_landscape"), file},
            {QStringLiteral("image"), still},
            {QStringLiteral("priority"), priority},
            {QStringLiteral("market_url"),
             QStringLiteral("https://apps.velmora-store.example/app/id%1").arg(name)}};
}

void LocalAdServer::serve(const QJsonArray &banners, const QJsonArray &videos) {
    const QJsonObject table{{QStringLiteral("standard"), banners},
                            {QStringLiteral("video"), videos}};
    server.campaign().setReply(QJsonDocument(table).toJson(QJsonDocument::Compact));
}

} // namespace velmora::test
