// SPDX-License-Identifier: Apache-2.0
#include "StoreLink.h"

#include "Deployment.h"

namespace velmora {

namespace {
const QString WebScheme = QStringLiteral("https://");
const QString StoreScheme = QStringLiteral("macappstores://");

QUrl urlOf(const QString &link) {
    return link.trimmed().isEmpty() ? QUrl() : QUrl(link);
}
} // namespace

QUrl StoreLink::bannerLink(const QString &marketUrl) {
    const Deployment &deployment = Deployment::current();
    QString link = marketUrl;
    return urlOf(link.replace(WebScheme + deployment.storeWebLabel,
                              StoreScheme + deployment.storeClassicLabel));
}

QUrl StoreLink::videoLink(const QString &marketUrl) {
    QString link = marketUrl;
    return urlOf(link.replace(WebScheme, StoreScheme));
}

} // namespace velmora
