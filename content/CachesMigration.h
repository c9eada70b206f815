// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// Brings the caches folder up to date. Main thread only.
class CachesMigration {
public:
    /// Moves the ad table and its media from the host's caches folder, where earlier versions put
    /// them among the host's files, into the framework's folder. Does nothing when that has been
    /// done. Other files stay.
    static void moveFormerFiles();

    /// Deletes downloads that were never finished, because the process was killed: files with a
    /// mark in their name (CachesFolder::MarkSeparator) that are older than a day. On the disk
    /// queue's thread.
    static void deleteUnfinishedDownloads();
};

} // namespace velmora
