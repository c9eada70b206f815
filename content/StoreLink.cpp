#include "content/StoreLink.h"

#include "Support/Deployment.h"

namespace velmora {

namespace {
const QString WebScheme = QStringLiteral("https://");
const QString StoreScheme = QStringLiteral("macappstores://");
} // namespace

QUrl StoreLink::bannerLink(const QString &marketUrl) {
    const Deployment &deployment = Deployment::current();
    QString link = marketUrl;
    return QUrl(link.replace(WebScheme + deployment.storeWebLabel,
                             StoreScheme + deployment.storeClassicLabel));
}

QUrl StoreLink::videoLink(const QString &marketUrl) {
    QString link = marketUrl;
    return QUrl(link.replace(WebScheme, StoreScheme));
}

} // namespace velmora
