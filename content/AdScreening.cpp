#include "content/AdScreening.h"

#include "Support/Deployment.h"
#include "content/AdKeys.h"
#include "content/MediaAddress.h"
#include "platform/WebLink.h"

#include <Velmora/Support.h>

#include <QtCore/QJsonObject>

namespace velmora {

namespace {

QString refusalOfMedia(const QJsonObject &ad, const QString &key) {
    const MediaAddress address = MediaAddress::from(Deployment::current().acsURL, ad.value(key));
    return address.refusal.isEmpty() ? QString()
                                     : QStringLiteral("\"%1\" %2").arg(key, address.refusal);
}

QString refusalOfLink(const QJsonValue &link) {
    if (link.isUndefined() || link.isNull())
        return {};
    return WebLink::mayOpen(QUrl(link.toString()))
               ? QString()
               : QStringLiteral("\"market_url\" is not a link that may be opened");
}

QString refusalOfWeight(const QJsonValue &weight) {
    const bool usable =
        weight.isUndefined() || weight.isDouble() || weight.isString() || weight.isBool();
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

QJsonArray AdScreening::usableAds(const QJsonValue &placement, const QString &placementKey) {
    if (!placement.isArray()) {
        if (!placement.isUndefined())
            LOG(QStringLiteral("placement \"%1\" refused: it is not an array").arg(placementKey));
        return {};
    }
    QJsonArray usable;
    const QJsonArray elements = placement.toArray();
    for (qsizetype i = 0; i < elements.size(); ++i) {
        const QString reason = refusal(elements.at(i), placementKey);
        if (reason.isEmpty())
            usable.append(elements.at(i));
        else
            LOG(QStringLiteral("ad %1 of \"%2\" refused: %3").arg(i).arg(placementKey, reason));
    }
    return usable;
}

} // namespace velmora
