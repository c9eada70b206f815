// SPDX-License-Identifier: Apache-2.0
#include "AdsCacheInfoStorage.h"

#include "AdKeys.h"
#include "AdTableFile.h"
#include "AdTableWriter.h"
#include "CachesFolder.h"
#include "CachesMigration.h"
#include "Deployment.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <Velmora/Support.h>

#include <utility>

namespace velmora {

AdsCacheInfoStorage::AdsCacheInfoStorage() {
    // Made while the downloader is being made, so that it is destroyed after it: until then the
    // table may be saved.
    ProcessRoot::get<DiskQueue>();
    followFolder();
}

AdsCacheInfoStorage::~AdsCacheInfoStorage() {
    stopLoading();
}

bool AdsCacheInfoStorage::isLoaded() {
    followFolder();
    return !m_loading;
}

void AdsCacheInfoStorage::whenLoaded(std::function<void()> callback) {
    if (isLoaded())
        callback();
    else
        m_waiting.push_back(std::move(callback));
}

QJsonObject AdsCacheInfoStorage::infoDictionary() {
    followFolder();
    return m_ads.all.toJson();
}

void AdsCacheInfoStorage::setInfoDictionary(const QJsonObject &info) {
    followFolder();
    StoredAds ads{{}, DrawableAds(info)};
    ads.all.merge(info);
    m_ads = {};
    takeLoaded(std::move(ads));
}

// The ads of the previous folder are dropped, since their media files stay there.
void AdsCacheInfoStorage::followFolder() {
    const QString folder = CachesFolder::path();
    if (folder == m_folder)
        return;
    stopLoading();
    m_folder = folder;
    m_writer = folder.isEmpty() ? nullptr : std::make_shared<AdTableWriter>(tablePath());
    m_ads = {};
    if (folder.isEmpty())
        takeLoaded({});
    else
        startLoading();
}

// On the disk queue, after what is still to be written to the file.
void AdsCacheInfoStorage::startLoading() {
    Deployment::current();
    m_loading = std::make_shared<Loading>();
    const auto work = [this, loading = std::weak_ptr(m_loading), folder = m_folder,
                       former = CachesFolder::formerPath(), path = tablePath()] {
        const auto isWanted = [&loading] { return !loading.expired() && !ProcessRoot::hasEnded(); };
        if (!isWanted())
            return;
        CachesMigration::moveFormerFiles(former, folder);
        const auto ads =
            std::make_shared<std::optional<StoredAds>>(StoredAds::read(path, isWanted));
        if (!*ads)
            return;
        MainQueue::post([this, loading, ads] {
            if (loading.expired())
                return;
            followFolder(); // which gives the load up when the folder has changed
            if (!loading.expired())
                takeLoaded(std::move(**ads));
        });
        CachesMigration::deleteUnfinishedDownloads(folder);
    };
    ProcessRoot::get<DiskQueue>().run(work);
}

void AdsCacheInfoStorage::takeLoaded(StoredAds ads) {
    m_loading.reset();
    const StoredAds added = std::exchange(m_ads, std::move(ads));
    for (const QJsonObject &ad : std::as_const(m_resting))
        m_ads.drawable.remove(ad);
    for (const QString &placement : {kMainBannerKey, kMainVideoKey}) {
        const QJsonArray elements = added.all.ads(placement);
        for (const QJsonValue &ad : elements)
            addInfo(ad.toObject(), placement);
    }
    const auto waiting = std::exchange(m_waiting, {});
    for (const auto &callback : waiting)
        callback();
}

// What the file may have already is then there twice, and is read once.
void AdsCacheInfoStorage::stopLoading() {
    if (!m_loading)
        return;
    m_loading.reset();
    if (const QJsonObject added = m_ads.all.toJson(); !added.isEmpty() && m_writer)
        m_writer->write(added);
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
    if (!m_ads.all.add(placementKey, ad))
        return;
    if (!m_resting.contains(ad))
        m_ads.drawable.add(placementKey, ad);
    if (m_loading)
        return;
    if (!m_writer)
        LOG(QStringLiteral("the ad table is not written: the application has no name yet"));
    else if (m_writer->isFileMissing()) // somebody may have deleted it
        m_writer->writeAll(m_ads.all.toJson());
    else
        m_writer->write({{placementKey, QJsonArray{ad}}});
}

void AdsCacheInfoStorage::save() {
    followFolder();
    if (m_writer)
        m_writer->write(m_ads.all.toJson());
}

// The file in the folder that was current when the ads were added.
QString AdsCacheInfoStorage::tablePath() const {
    return m_folder + u'/' + CachesFolder::TableName;
}

const DrawableAds &AdsCacheInfoStorage::drawable() {
    followFolder();
    return m_ads.drawable;
}

void AdsCacheInfoStorage::rest(const QJsonObject &ad) {
    m_resting.insert(ad);
    m_ads.drawable.remove(ad);
}

std::optional<QJsonObject> AdsCacheInfoStorage::cacheInfo() {
    const auto ads = AdTableFile::read(storageURL().toLocalFile());
    return ads ? std::optional(ads->toJson()) : std::nullopt;
}

QUrl AdsCacheInfoStorage::storageURL() {
    const QString path = CachesFolder::pathFor(CachesFolder::TableName);
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

} // namespace velmora
