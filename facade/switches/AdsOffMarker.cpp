// SPDX-License-Identifier: Apache-2.0
#include "AdsOffMarker.h"

#include "HostSettings.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>

namespace velmora {

// Named like the settings, so that it follows the application's name as they do.
QString AdsOffMarker::path() {
    const QFileInfo settings(HostSettings::place());
    if (settings.fileName().isEmpty())
        return {};
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' +
           settings.dir().dirName() + u'/' + settings.completeBaseName() +
           QStringLiteral("/velmora-ads-off");
}

bool AdsOffMarker::exists() {
    const QString marker = path();
    return !marker.isEmpty() && QFileInfo(marker).isFile();
}

bool AdsOffMarker::set(bool adsOff) {
    const QString marker = path();
    if (marker.isEmpty())
        return false;
    if (!adsOff)
        return !exists() || QFile::remove(marker);
    QDir().mkpath(QFileInfo(marker).path());
    QSaveFile file(marker);
    return file.open(QIODevice::WriteOnly) &&
           file.write("The advertising of this application is off.\n") > 0 && file.commit();
}

} // namespace velmora
