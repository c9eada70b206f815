// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// Brings a caches folder up to date, which takes long when there are many files. Any thread, once
/// the main thread has used Deployment::current().
class CachesMigration {
public:
    /// Moves the ad table and its media from the host's caches folder, where earlier versions put
    /// them among the host's files, into the framework's folder. Does nothing when that has been
    /// done. Other files stay.
    /// @param former CachesFolder::formerPath()
    /// @param folder CachesFolder::path(); not empty
    static void moveFormerFiles(const QString &former, const QString &folder);

    /// Deletes downloads that were never finished, because the process was killed: files with a
    /// mark in their name (CachesFolder::MarkSeparator) that are older than a day.
    static void deleteUnfinishedDownloads(const QString &folder);
};

} // namespace velmora
