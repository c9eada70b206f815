// SPDX-License-Identifier: Apache-2.0
#include "AdReply.h"

#include "AdKeys.h"

#include <Velmora/Support.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace velmora {

namespace {

QJsonObject cut(QJsonObject table) {
    for (const QString &key : {kMainBannerKey, kMainVideoKey}) {
        const QJsonArray ads = table.value(key).toArray();
        if (ads.size() <= AdReply::MostAds)
            continue;
        LOG(QStringLiteral("placement \"%1\" has %2 ads: those after the first %3 are ignored")
                .arg(key)
                .arg(ads.size())
                .arg(AdReply::MostAds));
        QJsonArray first;
        for (qsizetype i = 0; i < AdReply::MostAds; ++i)
            first.append(ads.at(i));
        table.insert(key, first);
    }
    return table;
}

} // namespace

AdReply AdReply::of(const std::optional<QJsonObject> &table) {
    if (!table)
        return {};
    const QJsonObject usable = cut(*table);
    return {usable, DrawableAds(usable), {}};
}

AdReply AdReply::parsed(const QByteArray &body) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (document.isObject())
        return of(document.object());
    AdReply reply;
    reply.error = document.isNull() ? error.errorString() : QStringLiteral("not an object");
    return reply;
}

} // namespace velmora
