// SPDX-License-Identifier: Apache-2.0
#include "AdTable.h"

#include "AdKeys.h"
#include "AdScreening.h"
#include "Deployment.h"
#include "Log.h"
#include "SharedUrlSession.h"
#include "WeightedSelection.h"

#include <Velmora/AdsMacHelper.h>
#include <Velmora/Support.h>

#include <QtCore/QJsonDocument>

namespace velmora {

namespace {

// The ad server expects ASCII. Every other character becomes a question mark.
QByteArray lossyAscii(const QString &text) {
    QByteArray bytes;
    for (const QChar c : text) {
        if (!c.isLowSurrogate())
            bytes += c.unicode() < 0x80 ? char(c.unicode()) : '?';
    }
    return bytes;
}

} // namespace

QString AdTable::requestBody() {
    const QVariant value = VLMMainAppBundle().objectForInfoDictionaryKey(MetrivoAppId);
    const QString identifier = value.isValid() ? value.toString() : DefaultAppId;
    // As text and not by QJsonDocument: these are the bytes that the ad server expects.
    return QStringLiteral("{\"inner_id\" : \"%1\",\"language\" : \"EN\","
                          "\"placements\" : [ \"standard\",\"video\" ]}")
        .arg(identifier);
}

void AdTable::load(const Completion &completion) {
    if (m_task && m_task->isRunning()) {
        LOG(QStringLiteral("the ad server is being asked already"));
        return;
    }
    if (m_hasReply) {
        LOG(QStringLiteral("the ad server has answered already in this run"));
        return;
    }
    const QJsonObject cached = m_cacheStorage.infoDictionary();
    m_reply = cached;
    m_isCacheComplete = cached.contains(kMainBannerKey) && cached.contains(kMainVideoKey);
    if (m_isCacheComplete || !AdsMacHelper::isInternetConnection()) {
        if (completion)
            completion();
    }
    if (AdsMacHelper::isInternetConnection())
        request(completion);
    else
        LOG(QStringLiteral("offline: the ad server is not asked"));
}

void AdTable::request(const Completion &completion) {
    UrlRequest request;
    request.url = QUrl(Deployment::current().apiAcsURL());
    request.method = "POST";
    request.body = lossyAscii(requestBody());
    request.onlyOnce = true;
    m_task = SharedUrlSession::shared().start(
        request, [weak = weak_from_this(), completion](const UrlResponse &response) {
            if (const auto self = weak.lock())
                self->takeReply(response, completion);
        });
}

void AdTable::takeReply(const UrlResponse &response, const Completion &completion) {
    if (response.isRefused) {
        LOG(QStringLiteral("the ad server was not asked: %1").arg(response.error));
        return;
    }
    qCInfo(velmoraLog, "load"); // hosts see this line without debug mode, too
    QJsonParseError error;
    const QJsonDocument reply = QJsonDocument::fromJson(response.body, &error);
    if (reply.isObject())
        m_reply = reply.object();
    else
        m_reply.reset();
    if (!response.error.isEmpty())
        LOG(QStringLiteral("the ad server did not answer: %1").arg(response.error));
    else if (!reply.isObject())
        LOG(QStringLiteral("the ad server's reply was refused: %1")
                .arg(reply.isNull() ? error.errorString() : QStringLiteral("not an object")));
    m_hasReply = true;
    if (!m_isCacheComplete && completion)
        completion();
}

std::optional<QJsonObject> AdTable::current() {
    if (!AdsMacHelper::isInternetConnection())
        return m_cacheStorage.infoDictionary();
    return m_reply;
}

std::optional<QJsonObject> AdTable::draw(const QString &placementKey, const QJsonObject &excluded) {
    const std::optional<QJsonObject> table = current();
    if (!table)
        return {};
    return WeightedSelection::draw(
        AdScreening::usableAds(table->value(placementKey), placementKey), excluded,
        placementKey == kMainVideoKey ? kVideoPriority : kBannerPriority);
}

bool AdTable::isSettled() const {
    const bool isRequested = m_task && m_task->isRunning();
    return m_hasReply || (isRequested && m_isCacheComplete);
}

} // namespace velmora
