// SPDX-License-Identifier: Apache-2.0
#include "tests/tour/ServerProbe.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace demo::tour {

namespace {

QJsonObject tableOf(velmora::adserver::AdServer &server) {
    return QJsonDocument::fromJson(server.campaign().reply()).object();
}

} // namespace

int ServerProbe::requests(const QString &path) const {
    return m_server.log().count(path);
}

QStringList ServerProbe::campaignValues(const QString &placement, const QString &key) const {
    QStringList values;
    const QJsonArray ads = tableOf(m_server).value(placement).toArray();
    for (const QJsonValue &ad : ads)
        values.append(ad[key].toString());
    return values;
}

void ServerProbe::withholdVideos() {
    QJsonObject table = tableOf(m_server);
    table["video"] = QJsonArray();
    m_server.campaign().setReply(QJsonDocument(table).toJson());
}

} // namespace demo::tour
