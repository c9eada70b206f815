// SPDX-License-Identifier: Apache-2.0
#include "AdScreening.h"

#include "AdKeys.h"
#include "MediaAddress.h"
#include "WebLink.h"

#include <QtCore/QJsonObject>

namespace velmora {

namespace {

QString refusalOfMedia(const QJsonObject &ad, const QString &key) {
    const QString reason = MediaAddress::ofAd(ad, key).refusal;
    return reason.isEmpty() ? QString() : QStringLiteral("\"%1\" %2").arg(key, reason);
}

QString refusalOfLink(const QJsonValue &link) {
    const bool isBlank = link.isString() && link.toString().trimmed().isEmpty();
    if (link.isUndefined() || link.isNull() || isBlank)
        return {};
    return WebLink::mayOpen(QUrl(link.toString()))
               ? QString()
               : QStringLiteral("\"market_url\" is not a link that may be opened");
}

QString refusalOfWeight(const QJsonValue &weight) {
    const bool usable = !weight.isArray() && !weight.isObject();
    return usable ? QString() : QStringLiteral("\"priority\" is neither a number nor a text");
}

} // namespace

QString AdScreening::refusal(const QJsonValue &element, const QString &placementKey) {
    if (!element.isObject())
        return QStringLiteral("is not an object");
    const QJsonObject ad = element.toObject();
    QString reason = refusalOfWeight(ad.value(kBannerPriority));
    if (reason.isEmpty())
        reason = refusalOfLink(ad.value(kBannerURL));
    if (placementKey == kMainVideoKey) {
        if (reason.isEmpty())
            reason = refusalOfMedia(ad, kVideoCapture);
        if (reason.isEmpty())
            reason = refusalOfMedia(ad, kVideoImage);
    } else if (reason.isEmpty()) {
        reason = refusalOfMedia(ad, kBannerImgURL);
    }
    return reason;
}

} // namespace velmora
