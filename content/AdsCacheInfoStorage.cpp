// SPDX-License-Identifier: Apache-2.0
#include "AdsCacheInfoStorage.h"

#include "AdKeys.h"
#include "AdTableFile.h"
#include "CachesFolder.h"
#include "CachesMigration.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

#include <atomic>
#include <utility>

namespace velmora {

struct AdsCacheInfoStorage::Writes {
    std::atomic<int> pending = 0;
    std::atomic<bool> hasFailed = false;
};

AdsCacheInfoStorage::AdsCacheInfoStorage() : m_writes(std::make_shared<Writes>()) {
    followFolder();
    // Made while the downloader is being made, so that it is destroyed after it: until then the
    // table may be saved.
    ProcessRoot::get<DiskQueue>();
}

QJsonObject AdsCacheInfoStorage::infoDictionary() {
    followFolder();
    return m_info.toJson();
}

void AdsCacheInfoStorage::setInfoDictionary(const QJsonObject &info) {
    followFolder();
    setInfo(info);
}

void AdsCacheInfoStorage::setInfo(const QJsonObject &info) {
    m_info = {};
    m_info.merge(info);
    m_drawable.reset();
}

// The ads of the previous folder are dropped, since their media files stay there.
void AdsCacheInfoStorage::followFolder() {
    const QString folder = CachesFolder::path();
    if (folder == m_folder)
        return;
    m_folder = folder;
    CachesMigration::moveFormerFiles();
    CachesMigration::deleteUnfinishedDownloads();
    setInfo(cacheInfo().value_or(QJsonObject()));
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
    if (!m_info.add(placementKey, ad))
        return;
    if (m_drawable)
        m_drawable->add(placementKey, ad);
    // A file that somebody has deleted, or that lacks an ad, is written whole.
    const bool isIncomplete =
        m_writes->hasFailed ||
        (m_writes->pending == 0 && !QFileInfo::exists(storageURL().toLocalFile()));
    write(isIncomplete ? m_info.toJson() : QJsonObject{{placementKey, QJsonArray{ad}}});
}

void AdsCacheInfoStorage::save() {
    followFolder();
    write(m_info.toJson());
}

void AdsCacheInfoStorage::write(const QJsonObject &part) {
    if (m_folder.isEmpty()) {
        LOG(QStringLiteral("the ad table is not written: the application has no name yet"));
        return;
    }
    ++m_writes->pending;
    m_writes->hasFailed = false;
    ProcessRoot::get<DiskQueue>().run([path = storageURL().toLocalFile(), part, writes = m_writes] {
        if (!AdTableFile::append(path, part)) {
            LOG(QStringLiteral("the ad table could not be written to %1").arg(path));
            writes->hasFailed = true;
        }
        --writes->pending;
    });
}

const DrawableAds &AdsCacheInfoStorage::drawable() {
    followFolder();
    if (!m_drawable) {
        m_drawable = DrawableAds(m_info.toJson());
        for (const QJsonObject &ad : std::as_const(m_resting))
            m_drawable->remove(ad);
    }
    return *m_drawable;
}

void AdsCacheInfoStorage::rest(const QJsonObject &ad) {
    m_resting.append(ad);
    if (m_drawable)
        m_drawable->remove(ad);
}

std::optional<QJsonObject> AdsCacheInfoStorage::cacheInfo() {
    return AdTableFile::read(storageURL().toLocalFile());
}

QUrl AdsCacheInfoStorage::storageURL() {
    const QString path = CachesFolder::pathFor(CachesFolder::TableName);
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

} // namespace velmora
