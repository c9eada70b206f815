// SPDX-License-Identifier: Apache-2.0
#include "CachesFolder.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace velmora {

const QString CachesFolder::TableName = QStringLiteral("savedAds");

QString CachesFolder::path() {
    if (QCoreApplication::applicationName().isEmpty())
        return {};
    const QString path = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    QDir().mkpath(path);
    return path;
}

QString CachesFolder::pathFor(const QString &fileName) {
    const QString folder = path();
    return folder.isEmpty() ? QString() : folder + QLatin1Char('/') + fileName;
}

} // namespace velmora
