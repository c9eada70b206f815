// SPDX-License-Identifier: Apache-2.0
#include "AdTable.h"

#include "AdKeys.h"
#include "BackgroundThread.h"
#include "Deployment.h"
#include "FirstPicture.h"
#include "Log.h"
#include "MainQueue.h"
#include "SharedUrlSession.h"
#include "UrlSession.h"

#include <Velmora/AdsMacHelper.h>
#include <Velmora/Support.h>

#include <utility>

namespace velmora {

namespace {

constexpr int LongestRequestMs = 30'000;

// The ad server expects ASCII. Every other character becomes a question mark.
QByteArray lossyAscii(const QString &text) {
    QByteArray bytes;
    for (const QChar c : text) {
        if (!c.isLowSurrogate())
            bytes += c.unicode() < 0x80 ? char(c.unicode()) : '?';
    }
    return bytes;
}

QVariant hostIdentifier() {
    return VLMMainAppBundle().objectForInfoDictionaryKey(MetrivoAppId);
}

} // namespace

QString AdTable::requestBody() {
    const QVariant value = hostIdentifier();
    const QString identifier = value.isValid() ? value.toString() : DefaultAppId;
    // As text and not by QJsonDocument: these are the bytes that the ad server expects.
    return QStringLiteral("{\"inner_id\" : \"%1\",\"language\" : \"EN\","
                          "\"placements\" : [ \"standard\",\"video\" ]}")
        .arg(identifier);
}

void AdTable::load(const Completion &completion) {
    if (m_isRequested) {
        LOG(QStringLiteral("the ad server is being asked already"));
        return;
    }
    if (m_hasReply) {
        LOG(QStringLiteral("the ad server has answered already in this run"));
        return;
    }
    warnIfNoIdentifier();
    m_usesCache = true;
    const bool isOnline = AdsMacHelper::isInternetConnection();
    m_cacheStorage.whenLoaded([weak = weak_from_this(), isOnline, completion] {
        if (const auto self = weak.lock())
            self->decideOnCache(isOnline, completion);
    });
    if (isOnline)
        request(completion);
    else
        LOG(QStringLiteral("offline: the ad server is not asked"));
}

// Also without debug mode: the developer of a host would otherwise notice only when the ads do not
// pay.
void AdTable::warnIfNoIdentifier() {
    if (std::exchange(m_hasLookedForIdentifier, true) || hostIdentifier().isValid())
        return;
    qCWarning(velmoraLog, "the host has no Info.plist with the key %ls: the ad server is told %ls",
              qUtf16Printable(MetrivoAppId), qUtf16Printable(DefaultAppId));
}

void AdTable::decideOnCache(bool isOnline, const Completion &completion) {
    const QJsonObject cached = m_cacheStorage.infoDictionary();
    m_isCacheComplete = cached.contains(kMainBannerKey) && cached.contains(kMainVideoKey);
    if (!m_isCacheComplete)
        FirstPicture::settle();
    if ((m_isCacheComplete || !isOnline) && completion)
        completion();
}

void AdTable::request(const Completion &completion) {
    UrlRequest request;
    request.url = QUrl(Deployment::current().apiAcsURL());
    request.method = "POST";
    request.body = lossyAscii(requestBody());
    request.wholeTimeoutMs = LongestRequestMs;
    request.onlyOnce = true;
    m_isRequested = true;
    SharedUrlSession::shared().start(
        request, [weak = weak_from_this(), completion](const UrlResponse &response) {
            if (const auto self = weak.lock())
                self->parse(response, completion);
        });
}

void AdTable::parse(const UrlResponse &response, const Completion &completion) {
    if (response.isRefused) {
        m_isRequested = false;
        LOG(QStringLiteral("the ad server was not asked: %1").arg(response.error));
        return;
    }
    qCInfo(velmoraLog, "load"); // hosts see this line without debug mode, too
    const auto work = [weak = weak_from_this(), response, completion] {
        const auto reply = std::make_shared<AdReply>(AdReply::parsed(response.body));
        if (!response.error.isEmpty())
            LOG(QStringLiteral("the ad server did not answer: %1").arg(response.error));
        else if (!reply->error.isEmpty())
            LOG(QStringLiteral("the ad server's reply was refused: %1").arg(reply->error));
        MainQueue::post([weak, reply, completion] {
            const auto self = weak.lock();
            if (!self)
                return;
            // A reply that is faster than the disk waits for decideOnCache(), and for the draws
            // from the cache that this has posted.
            self->m_cacheStorage.whenLoaded([weak, reply, completion] {
                MainQueue::post([weak, reply, completion] {
                    if (const auto same = weak.lock())
                        same->takeReply(std::move(*reply), completion);
                });
            });
        });
    };
    if (!startBackgroundThread("velmora-reply", AtExit::Waits, work, nullptr))
        work();
}

void AdTable::takeReply(AdReply reply, const Completion &completion) {
    setReply(std::move(reply));
    m_isRequested = false;
    m_hasReply = true;
    if (!m_isCacheComplete && completion)
        completion();
}

void AdTable::setReply(AdReply reply) {
    m_usesCache = false;
    m_reply = std::move(reply);
    for (const QJsonObject &ad : std::as_const(m_resting))
        m_reply.ads.remove(ad);
}

bool AdTable::usesCache() const {
    return m_usesCache || !AdsMacHelper::isInternetConnection();
}

std::optional<QJsonObject> AdTable::current() {
    return usesCache() ? m_cacheStorage.infoDictionary() : m_reply.table;
}

const DrawableAds &AdTable::drawable() {
    return usesCache() ? m_cacheStorage.drawable() : m_reply.ads;
}

// Looks for a connection once, which reads the system's routes.
void AdTable::whenReady(const Drawing &callback) {
    const bool isOffline = !m_usesCache && usesCache();
    if (!m_usesCache && !isOffline) {
        callback(m_reply.ads);
        return;
    }
    m_cacheStorage.whenLoaded([weak = weak_from_this(), isOffline, callback] {
        // Unless offline, the reply may be there by now.
        if (const auto self = weak.lock())
            callback(isOffline ? self->m_cacheStorage.drawable() : self->drawable());
    });
}

std::optional<QJsonObject> AdTable::draw(const QString &placementKey, const QJsonObject &excluded) {
    return drawable().draw(placementKey, excluded);
}

void AdTable::rest(const QJsonObject &ad) {
    m_resting.insert(ad);
    m_reply.ads.remove(ad);
    m_cacheStorage.rest(ad);
}

bool AdTable::isSettled() const {
    return m_hasReply || (m_isRequested && m_isCacheComplete);
}

} // namespace velmora
