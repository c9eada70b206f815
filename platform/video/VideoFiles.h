// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// Finds the files that belong to the library: the video module and the video helper. Any thread.
class VideoFiles {
public:
    /// Looks for a file in the library's folder (OwnFile) and in the folder "velmora" in it; for a
    /// static library then where it is installed, relative to the host's program; in a developer
    /// build then in the build folder.
    /// @param variable in a developer build: if this environment variable is set, its value is the
    ///                 file's path, and it is looked for nowhere else
    /// @param error    receives the reason when the result, a path, is empty
    static QString find(const QString &fileName, const char *variable, QString *error);
};

} // namespace velmora
