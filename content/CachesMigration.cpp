// SPDX-License-Identifier: Apache-2.0
#include "CachesMigration.h"

#include "AdKeys.h"
#include "AdTableFile.h"
#include "Archive.h"
#include "CachesFolder.h"
#include "MediaAddress.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

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

void moveMedia(const QJsonObject &ad, const QString &key) {
    const QUrl remote = MediaAddress::ofAd(ad, key).remote;
    if (remote.isEmpty())
        return;
    const QString name = MediaAddress::cachedName(remote);
    const QFileInfo former(CachesFolder::formerPath() + u'/' + name);
    if (former.isFile() && !former.isSymLink())
        QFile::rename(former.filePath(), CachesFolder::pathFor(name));
}

} // namespace

void CachesMigration::moveFormerFiles() {
    const QString former = CachesFolder::formerPath() + u'/' + CachesFolder::TableName;
    if (CachesFolder::path().isEmpty() || !QFileInfo(former).isFile())
        return;
    const auto table = formerTable(former);
    if (!table)
        return;
    for (const QString &placement : {kMainBannerKey, kMainVideoKey}) {
        const QJsonArray ads = table->value(placement).toArray();
        for (const QJsonValue &ad : ads) {
            for (const QString &key : {kBannerImgURL, kVideoCapture, kVideoImage})
                moveMedia(ad.toObject(), key);
        }
    }
    // The former table goes last, so that a migration that was interrupted is finished later.
    if (AdTableFile::append(CachesFolder::pathFor(CachesFolder::TableName), *table))
        QFile::remove(former);
    LOG(QStringLiteral("the ad table and its media were moved to %1").arg(CachesFolder::path()));
}

void CachesMigration::deleteUnfinishedDownloads() {
    const QString folder = CachesFolder::path();
    if (folder.isEmpty())
        return;
    ProcessRoot::get<DiskQueue>().run([folder] {
        const QDateTime yesterday = QDateTime::currentDateTimeUtc().addDays(-1);
        const QFileInfoList files =
            QDir(folder).entryInfoList({u'*' + QString(QChar(CachesFolder::MarkSeparator)) + u'*'},
                                       QDir::Files | QDir::Hidden);
        for (const QFileInfo &file : files) {
            if (file.lastModified() < yesterday)
                QFile::remove(file.filePath());
        }
    });
}

} // namespace velmora
