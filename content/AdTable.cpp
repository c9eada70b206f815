// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"

#include "AdKeys.h"
#include "Deployment.h"
#include "Log.h"
#include "MainQueue.h"
#include "SharedUrlSession.h"

#include <Velmora/AdsMacHelper.h>
#include <Velmora/Support.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

namespace velmora {

namespace {

// The server speaks ASCII; whatever is not becomes a question mark, and nothing is refused.
QByteArray lossyAscii(const QString &text) {
    QByteArray bytes;
    for (const QChar c : text) {
        if (!c.isLowSurrogate())
            bytes += c.unicode() < 0x80 ? char(c.unicode()) : '?';
    }
    return bytes;
}

} // namespace

QString AdsDownloader::generateRequestAcs() {
    const QVariant known = VLMMainAppBundle().objectForInfoDictionaryKey(MetrivoAppId);
    const QString identifier = known.isValid() ? known.toString() : DefaultAppId;
    return QStringLiteral("{") + QStringLiteral("\"inner_id\" : \"") + identifier +
           QStringLiteral("\",") + QStringLiteral("\"language\" : \"EN\",") +
           QStringLiteral("\"placements\" : [ \"standard\",\"video\" ]}");
}

void AdsDownloader::downloadJSONWithComplitionBlock(const Completion &completion) {
    if (m_jsonTask && m_jsonTask->isRunning()) {
        LOG(QStringLiteral("the ad server is being asked already"));
        return;
    }
    if (m_isUpdateAdsCurrentSession) {
        LOG(QStringLiteral("the ad server has answered already in this run"));
        return;
    }
    const QJsonObject cached = m_cacheStorage.infoDictionary();
    m_replyJSON = cached;
    m_isShowBannersFromCache = cached.contains(kMainBannerKey) && cached.contains(kMainVideoKey);
    if (m_isShowBannersFromCache || !AdsMacHelper::isInternetConnection()) {
        if (completion)
            completion();
    }
    if (AdsMacHelper::isInternetConnection())
        postRequest(completion);
    else
        LOG(QStringLiteral("offline: the ad server is not asked"));
}

void AdsDownloader::postRequest(const Completion &completion) {
    UrlRequest request;
    request.url = QUrl(Deployment::current().apiAcsURL());
    request.method = "POST";
    request.body = lossyAscii(generateRequestAcs());
    request.onlyOnce = true;
    m_jsonTask = SharedUrlSession::shared().start(
        request, [weak = weak_from_this(), completion](const UrlResponse &response) {
            if (const auto self = weak.lock())
                self->takeReply(response, completion);
        });
}

void AdsDownloader::takeReply(const UrlResponse &response, const Completion &completion) {
    qCInfo(velmoraLog, "load");
    QJsonParseError error;
    const QJsonDocument reply = QJsonDocument::fromJson(response.body, &error);
    if (reply.isObject())
        m_replyJSON = reply.object();
    else
        m_replyJSON.reset();
    if (!response.error.isEmpty())
        LOG(QStringLiteral("the ad server did not answer: %1").arg(response.error));
    else if (!reply.isObject())
        LOG(QStringLiteral("the ad server's reply was refused: %1")
                .arg(reply.isNull() ? error.errorString() : QStringLiteral("not an object")));
    m_isUpdateAdsCurrentSession = true;
    if (!m_isShowBannersFromCache && completion)
        completion();
}

std::optional<QJsonObject> AdsDownloader::replyJSON() {
    if (!AdsMacHelper::isInternetConnection())
        return m_cacheStorage.infoDictionary();
    return m_replyJSON;
}

std::optional<QJsonObject> AdsDownloader::JSONSearchByQuery(const QString &query) {
    if (MainQueue::isMainThread()) {
        LOG(QStringLiteral("a store look-up was refused: it would block the main thread"));
        return {};
    }
    UrlRequest request;
    request.url = QUrl(query);
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

QString AdsDownloader::appNameFromMarketLink(const QString &link, bool isWeb) {
    QString number = link.section(QLatin1Char('/'), -1).toLower();
    number.remove(QStringLiteral("id"));
    const auto found = JSONSearchByQuery(Deployment::current().storeLookupURL +
                                         QStringLiteral("/lookup?id=") + number);
    QString name = found ? found->value(QLatin1String("trackName")).toString() : QString();
    if (name.isNull())
        name = QStringLiteral("null");
    name = name.section(QLatin1Char('-'), 0, 0).remove(QLatin1Char(' '));
    return isWeb ? QStringLiteral("Web ") + name : name;
}

} // namespace velmora
