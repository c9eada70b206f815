// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// The current user's caches folder of this host, by the host's name of the moment: the ad table
/// and all media lie directly in it.
class CachesFolder {
public:
    /// The folder's path; the folder is made if it is missing. Empty while the host has no name:
    /// without one, the system's answer is a folder that all programs share.
    static QString path();

    /// Path of a file in it, empty without a folder.
    static QString pathFor(const QString &fileName);

    /// File name of the persisted ad table.
    static const QString TableName;
};

} // namespace velmora
