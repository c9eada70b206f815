// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "StoredAds.h"

#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class AdTableWriter;

/// The persisted ad table: every ad whose media was cached, in this run or an earlier one. Ads are
/// drawn from it while the machine is offline. The file (AdTableFile) is read, and new ads are
/// appended to it, on the disk queue's thread. When the host changes its application name, the
/// table in the new caches folder is loaded. Main thread only.
class AdsCacheInfoStorage {
public:
    /// Starts to load the file. A missing or unreadable file gives an empty table. Until it is
    /// loaded the table holds the ads that were added meanwhile.
    AdsCacheInfoStorage();
    ~AdsCacheInfoStorage();
    AdsCacheInfoStorage(const AdsCacheInfoStorage &) = delete;
    AdsCacheInfoStorage &operator=(const AdsCacheInfoStorage &) = delete;

    bool isLoaded();
    /// Calls back when the file is loaded and the caches folder is up to date (CachesMigration);
    /// inside this call when that is so already. Not called when this object is destroyed before.
    void whenLoaded(std::function<void()> callback);

    /// Gives up a load that is under way, and saves the ads that were added meanwhile.
    void stopLoading();

    /// The ads by placement, as in the ad server's reply.
    QJsonObject infoDictionary();
    /// Replaces the ads; what is being loaded is dropped.
    void setInfoDictionary(const QJsonObject &info);

    /// Adds an ad and saves, unless the table holds an equal one. An empty ad is ignored.
    void addBannerInfo(const QJsonObject &ad);
    void addVideoInfo(const QJsonObject &ad);
    void addInfo(const QJsonObject &ad, const QString &placementKey);

    /// Queues a write of the whole table: what the file has already is then there twice, and is
    /// read once.
    void save();

    /// The table's usable ads, to draw from.
    const DrawableAds &drawable();
    /// An ad is not to be drawn any more in this run.
    void rest(const QJsonObject &ad);

    /// Reads the file on this thread; nothing when it is missing or unreadable.
    static std::optional<QJsonObject> cacheInfo();
    /// The file; empty while the host has no caches folder.
    static QUrl storageURL();

private:
    /// A load that is under way; it is given up when this is destroyed.
    struct Loading {};

    /// Loads the table of the caches folder when that is another one than at the last call.
    void followFolder();
    void startLoading();
    void takeLoaded(StoredAds ads);
    QString tablePath() const;

    QString m_folder;
    StoredAds m_ads;
    std::shared_ptr<Loading> m_loading; // null once m_ads is what the file has
    std::vector<std::function<void()>> m_waiting;
    QSet<QJsonObject> m_resting;
    std::shared_ptr<AdTableWriter> m_writer; // null while there is no caches folder
};

} // namespace velmora
