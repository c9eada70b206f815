// SPDX-License-Identifier: Apache-2.0
#include <Velmora/StandardNames.h>

#include "Deployment.h"

#include <Velmora/Bundle.h>

#include <QtCore/QFileInfo>

namespace velmora {

QMap<QString, QString> StandardNames::standardBanners() {
    const QString store =
        QStringLiteral("macappstores://%1/app/id%2").arg(Deployment::current().storeHost);
    QMap<QString, QString> banners;
    const auto add = [&](const char *identifier, const char *storeId) {
        banners.insert(QLatin1String(identifier), store.arg(QLatin1String(storeId)));
    };
    add("mac.204117.mac-store", "1584206317"); // Quillmoor
    add("mac.204236.mac-store", "1597341082"); // Tallowick
    add("mac.204358.mac-store", "1603875294"); // Orrivane
    add("mac.204491.mac-store", "1619528473"); // Pebblotto
    return banners;
}

QString StandardNames::bannerFromName(const QString &identifier) {
    const QString path = Bundle::resourseBundleForClass<StandardNames>().resourcePath() +
                         QStringLiteral("/%1.gif").arg(identifier);
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace velmora
