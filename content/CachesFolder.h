// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// The framework's folder in the host's caches folder of the current user. It holds the ad table
/// and all media files, without subfolders. It depends on the application's name, which a host may
/// change at any time.
class CachesFolder {
public:
    /// The folder's path; whoever writes a file creates the folder. Empty while the application has
    /// no name, because Qt then gives a folder that all programs share.
    static QString path();
    /// The host's caches folder, in which earlier versions put their files.
    static QString formerPath();

    /// The path of a file in the folder; empty while there is no folder.
    static QString pathFor(const QString &fileName);

    /// File name of the persisted ad table.
    static const QString TableName;
    /// Separates a file's name from a mark that makes it no media file; see MediaAddress, which
    /// refuses names that contain it.
    static constexpr char16_t MarkSeparator = u':';
};

} // namespace velmora
