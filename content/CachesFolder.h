#pragma once

#include <QtCore/QString>

namespace velmora {

/// The current user's caches folder of this host: the ad table and all media lie directly in it.
class CachesFolder {
public:
    /// The folder's path, computed once a process; the folder is made if it is missing.
    static QString path();

    /// Path of a file in it.
    static QString pathFor(const QString &fileName);

    /// File name of the persisted ad table.
    static const QString TableName;
};

} // namespace velmora
