// SPDX-License-Identifier: Apache-2.0
#include "CachesFolder.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStandardPaths>

namespace velmora {

const QString CachesFolder::TableName = QStringLiteral("savedAds");

QString CachesFolder::path() {
    if (QCoreApplication::applicationName().isEmpty())
        return {};
    return formerPath() + QStringLiteral("/Velmora");
}

QString CachesFolder::formerPath() {
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
}

QString CachesFolder::pathFor(const QString &fileName) {
    const QString folder = path();
    return folder.isEmpty() ? QString() : folder + QLatin1Char('/') + fileName;
}

} // namespace velmora
