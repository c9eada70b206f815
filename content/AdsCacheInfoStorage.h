// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdCollection.h"
#include "DrawableAds.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <memory>
#include <optional>

namespace velmora {

/// The persisted ad table: every ad whose media was cached, in this run or an earlier one. Ads are
/// drawn from it while the machine is offline. New ads are appended to the file (AdTableFile) on
/// the disk queue's thread. When the host changes its application name, the table in the new caches
/// folder is loaded. Main thread only.
class AdsCacheInfoStorage {
public:
    /// Loads the file. A missing or unreadable file gives an empty table.
    AdsCacheInfoStorage();

    /// The ads by placement, as in the ad server's reply.
    QJsonObject infoDictionary();
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

    /// Reads the file; nothing when it is missing or unreadable.
    static std::optional<QJsonObject> cacheInfo();
    /// The file; empty while the host has no caches folder.
    static QUrl storageURL();

private:
    struct Writes;

    /// Loads the table of the caches folder when that is another one than at the last call.
    void followFolder();
    void setInfo(const QJsonObject &info);
    void write(const QJsonObject &part);

    QString m_folder;
    AdCollection m_info;
    std::optional<DrawableAds> m_drawable; // of m_info, made when it is asked for
    QList<QJsonObject> m_resting;
    std::shared_ptr<Writes> m_writes; // shared with the disk queue's thread
};

} // namespace velmora
