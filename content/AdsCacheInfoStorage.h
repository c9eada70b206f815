// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace velmora {

/// The persisted ad table: every ad whose media was cached, in this run or an earlier one. Ads are
/// drawn from it while the machine is offline. Each new ad has the file written once, on the disk
/// queue's thread, and merged with what other processes of the host have written. When the host
/// changes its application name, the table in the new caches folder is loaded. Main thread only.
class AdsCacheInfoStorage {
public:
    /// Loads the file. A missing or unreadable file gives an empty table.
    AdsCacheInfoStorage();

    /// The ads by placement, as in the ad server's reply.
    const QJsonObject &infoDictionary();
    void setInfoDictionary(const QJsonObject &info);

    /// Adds an ad and saves, unless the table holds an equal one. An empty ad is ignored.
    void addBannerInfo(const QJsonObject &ad);
    void addVideoInfo(const QJsonObject &ad);
    void addInfo(const QJsonObject &ad, const QString &placementKey);

    /// Queues a write of the file, after all earlier ones.
    void save();

    /// Reads the file; nothing when it is missing or unreadable.
    static std::optional<QJsonObject> cacheInfo();
    /// The file; empty while the host has no caches folder.
    static QUrl storageURL();

    /// Both tables in one: the file's ads, then those that only the other table has. Other
    /// top-level keys are taken from the file first.
    static QJsonObject merged(const QJsonObject &file, const QJsonObject &table);

private:
    /// Loads the table of the caches folder when that is another one than at the last call.
    void followFolder();

    QString m_folder;
    QJsonObject m_info;
};

} // namespace velmora
