// SPDX-License-Identifier: Apache-2.0
#include "CachesMigration.h"

#include "AdKeys.h"
#include "AdTableFile.h"
#include "Archive.h"
#include "CachesFolder.h"
#include "MediaAddress.h"

#include <Velmora/Support.h>

#include <QtCore/QCborMap>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

namespace velmora {

namespace {

std::optional<QJsonObject> formerTable(const QString &path) {
    const auto root =
        Archive::decode(CachesFolder::TableName, Archive::read(path, AdTableFile::LargestSize));
    if (!root || !root->isMap())
        return {}; // a file of the host
    return root->toMap().toJsonObject();
}

void moveMedia(const QJsonObject &ad, const QString &key, const QString &from, const QString &to) {
    const QUrl remote = MediaAddress::ofAd(ad, key).remote;
    if (remote.isEmpty())
        return;
    const QString name = MediaAddress::cachedName(remote);
    const QFileInfo former(from + u'/' + name);
    if (!former.isFile() || former.isSymLink())
        return;
    const QString path = to + u'/' + name;
    // It may have been downloaded meanwhile.
    if (!QFile::rename(former.filePath(), path) && QFileInfo(path).isFile())
        QFile::remove(former.filePath());
}

} // namespace

void CachesMigration::moveFormerFiles(const QString &former, const QString &folder) {
    const QString formerFile = former + u'/' + CachesFolder::TableName;
    if (!QFileInfo(formerFile).isFile())
        return;
    const auto table = formerTable(formerFile);
    if (!table)
        return;
    QDir().mkpath(folder);
    for (const QString &placement : {kMainBannerKey, kMainVideoKey}) {
        const QJsonArray ads = table->value(placement).toArray();
        for (const QJsonValue &ad : ads) {
            for (const QString &key : {kBannerImgURL, kVideoCapture, kVideoImage})
                moveMedia(ad.toObject(), key, former, folder);
        }
    }
    // The former table goes last, so that a migration that was interrupted is finished later.
    if (AdTableFile::append(folder + u'/' + CachesFolder::TableName, {*table}) == 1)
        QFile::remove(formerFile);
    LOG(QStringLiteral("the ad table and its media were moved to %1").arg(folder));
}

void CachesMigration::deleteUnfinishedDownloads(const QString &folder) {
    const QDateTime yesterday = QDateTime::currentDateTimeUtc().addDays(-1);
    const QFileInfoList files = QDir(folder).entryInfoList(
        {u'*' + QString(QChar(CachesFolder::MarkSeparator)) + u'*'}, QDir::Files | QDir::Hidden);
    for (const QFileInfo &file : files) {
        if (file.lastModified() < yesterday)
            QFile::remove(file.filePath());
    }
}

} // namespace velmora
