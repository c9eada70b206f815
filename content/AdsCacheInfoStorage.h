// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <optional>

namespace velmora {

/// Remembers across process runs every ad whose media was cached: the ad table of an offline
/// start. The file is written behind the main thread's back, once for each new distinct ad, and
/// merged with what another process of the same host wrote meanwhile. The table is always that of
/// the present caches folder: when the host takes another name, the table there is loaded. Main
/// thread only.
class AdsCacheInfoStorage {
public:
    /// Loads the file; a missing, torn or foreign one gives an empty table.
    AdsCacheInfoStorage();

    const QJsonObject &infoDictionary();
    void setInfoDictionary(const QJsonObject &info);

    /// Adds an ad and saves, unless an equal one is known already. An empty one is ignored.
    void addBannerInfo(const QJsonObject &ad);
    void addVideoInfo(const QJsonObject &ad);
    void addInfo(const QJsonObject &ad, const QString &placementKey);

    /// Has the file written, in order with earlier saves.
    void save();

    /// What the file holds now, or nothing.
    static std::optional<QJsonObject> cacheInfo();
    /// Empty while the host has no caches folder.
    static QUrl storageURL();

    /// One table with everything that either holds: ads of both placements, first those of
    /// the file; other keys as the file has them.
    static QJsonObject merged(const QJsonObject &file, const QJsonObject &table);

private:
    void followFolder();

    QString m_folder;
    QJsonObject m_info;
};

} // namespace velmora
