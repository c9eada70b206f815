// SPDX-License-Identifier: Apache-2.0
#include "AdsCacheInfoStorage.h"

#include "AdKeys.h"
#include "Archive.h"
#include "CachesFolder.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <Velmora/Support.h>

#include <QtCore/QCborMap>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QLockFile>

namespace velmora {

namespace {

constexpr qint64 LargestTable = 64 * 1024 * 1024;
constexpr int LockTimeoutMs = 2000;

std::optional<QJsonObject> tableAt(const QString &path) {
    const auto root = Archive::decode(CachesFolder::TableName, Archive::read(path, LargestTable));
    if (!root || !root->isMap())
        return {};
    return root->toMap().toJsonObject();
}

// Runs on the disk queue's thread.
void writeMerged(const QString &path, const QJsonObject &table) {
    QDir().mkpath(QFileInfo(path).path());
    // The colon keeps the name apart from media, whose names must not contain one.
    QLockFile lock(path + QStringLiteral(":lock"));
    // Without the lock the file is written all the same: another process may then lose an ad, but
    // this one certainly would.
    const bool locked = lock.tryLock(LockTimeoutMs);
    const QJsonObject whole =
        AdsCacheInfoStorage::merged(tableAt(path).value_or(QJsonObject()), table);
    const QByteArray bytes =
        Archive::encode(CachesFolder::TableName, QCborValue::fromJsonValue(whole));
    if (!Archive::write(path, bytes))
        LOG(QStringLiteral("the ad table could not be written to %1").arg(path));
    else if (!locked)
        LOG(QStringLiteral("the ad table was written without its lock"));
}

} // namespace

AdsCacheInfoStorage::AdsCacheInfoStorage() {
    followFolder();
    // Made while the downloader is being made, so that it is destroyed after it: until then the
    // table may be saved.
    ProcessRoot::get<DiskQueue>();
}

const QJsonObject &AdsCacheInfoStorage::infoDictionary() {
    followFolder();
    return m_info;
}

void AdsCacheInfoStorage::setInfoDictionary(const QJsonObject &info) {
    followFolder();
    m_info = info;
}

// The ads of the previous folder are dropped, since their media files stay there.
void AdsCacheInfoStorage::followFolder() {
    const QString folder = CachesFolder::path();
    if (folder == m_folder)
        return;
    m_folder = folder;
    m_info = cacheInfo().value_or(QJsonObject());
}

void AdsCacheInfoStorage::addBannerInfo(const QJsonObject &ad) {
    addInfo(ad, kMainBannerKey);
}

void AdsCacheInfoStorage::addVideoInfo(const QJsonObject &ad) {
    addInfo(ad, kMainVideoKey);
}

void AdsCacheInfoStorage::addInfo(const QJsonObject &ad, const QString &placementKey) {
    if (ad.isEmpty() || placementKey.isEmpty())
        return;
    followFolder();
    QJsonArray ads = m_info.value(placementKey).toArray();
    if (ads.contains(ad))
        return;
    ads.append(ad);
    m_info.insert(placementKey, ads);
    save();
}

void AdsCacheInfoStorage::save() {
    followFolder();
    if (m_folder.isEmpty()) {
        LOG(QStringLiteral("the ad table is not written: the application has no name yet"));
        return;
    }
    ProcessRoot::get<DiskQueue>().run(
        [path = storageURL().toLocalFile(), table = m_info] { writeMerged(path, table); });
}

std::optional<QJsonObject> AdsCacheInfoStorage::cacheInfo() {
    return tableAt(storageURL().toLocalFile());
}

QUrl AdsCacheInfoStorage::storageURL() {
    const QString path = CachesFolder::pathFor(CachesFolder::TableName);
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

QJsonObject AdsCacheInfoStorage::merged(const QJsonObject &file, const QJsonObject &table) {
    QJsonObject whole = table;
    for (auto it = file.begin(); it != file.end(); ++it) {
        if (it.key() != kMainBannerKey && it.key() != kMainVideoKey) {
            whole.insert(it.key(), it.value());
            continue;
        }
        QJsonArray ads = it.value().toArray();
        const QJsonArray own = table.value(it.key()).toArray();
        for (const QJsonValue &ad : own) {
            if (!ads.contains(ad))
                ads.append(ad);
        }
        whole.insert(it.key(), ads);
    }
    return whole;
}

} // namespace velmora
