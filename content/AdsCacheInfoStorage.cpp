#include "content/AdsCacheInfoStorage.h"

#include "content/AdKeys.h"
#include "content/CachesFolder.h"
#include "platform/Archive.h"
#include "platform/MainQueue.h"
#include "platform/ProcessRoot.h"
#include "platform/SerialQueue.h"

#include <Velmora/Support.h>

#include <QtCore/QJsonArray>
#include <QtCore/QLockFile>

namespace velmora {

namespace {

constexpr qint64 LargestTable = 64 * 1024 * 1024;
constexpr int LockPatienceMs = 2000;

std::optional<QJsonObject> tableAt(const QString &path) {
    const auto root = Archive::decode(CachesFolder::TableName, Archive::read(path, LargestTable));
    if (!root || !root->isMap())
        return {};
    return root->toMap().toJsonObject();
}

// On the disk queue's thread.
void writeMerged(const QString &path, const QJsonObject &table) {
    QLockFile lock(path + QStringLiteral(".lock"));
    // Written even without the lock: losing a race is better than losing the ad.
    const bool locked = lock.tryLock(LockPatienceMs);
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

AdsCacheInfoStorage::AdsCacheInfoStorage() : m_info(cacheInfo().value_or(QJsonObject())) {
    // Made now, so that it outlives whoever saves last.
    ProcessRoot::get<DiskQueue>();
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
    QJsonArray ads = m_info.value(placementKey).toArray();
    if (ads.contains(ad))
        return;
    ads.append(ad);
    m_info.insert(placementKey, ads);
    save();
}

void AdsCacheInfoStorage::save() {
    ProcessRoot::get<DiskQueue>().run(
        [path = storageURL().toLocalFile(), table = m_info] { writeMerged(path, table); });
}

std::optional<QJsonObject> AdsCacheInfoStorage::cacheInfo() {
    return tableAt(storageURL().toLocalFile());
}

QUrl AdsCacheInfoStorage::storageURL() {
    return QUrl::fromLocalFile(CachesFolder::pathFor(CachesFolder::TableName));
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
