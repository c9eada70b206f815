// SPDX-License-Identifier: Apache-2.0
#include "StoreLookup.h"

#include "Deployment.h"
#include "MainQueue.h"
#include "SharedUrlSession.h"

#include <Velmora/Support.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace velmora {

std::optional<QJsonObject> StoreLookup::firstResult(const QString &address) {
    if (MainQueue::isMainThread()) {
        LOG(QStringLiteral("a store look-up was refused: it would block the main thread"));
        return {};
    }
    UrlRequest request;
    request.url = QUrl(address);
    const auto session = SharedUrlSession::existing();
    const auto response = session ? session->fetch(request) : std::nullopt;
    if (!response || !response->error.isEmpty())
        return {};
    const QJsonValue first = QJsonDocument::fromJson(response->body)
                                 .object()
                                 .value(QLatin1String("results"))
                                 .toArray()
                                 .first();
    return first.isObject() ? std::optional(first.toObject()) : std::nullopt;
}

QString StoreLookup::shortName(const QString &link, bool isWeb) {
    QString number = link.section(QLatin1Char('/'), -1).toLower();
    number.remove(QStringLiteral("id"));
    const auto found =
        firstResult(Deployment::current().storeLookupURL + QStringLiteral("/lookup?id=") + number);
    QString name = found ? found->value(QLatin1String("trackName")).toString() : QString();
    if (name.isNull())
        name = QStringLiteral("null");
    name = name.section(QLatin1Char('-'), 0, 0).remove(QLatin1Char(' '));
    return isWeb ? QStringLiteral("Web ") + name : name;
}

} // namespace velmora
