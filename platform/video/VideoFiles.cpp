// SPDX-License-Identifier: Apache-2.0
#include "VideoFiles.h"

#include "OwnFile.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

namespace velmora {

namespace {

QStringList candidates(const QString &fileName, const char *variable) {
#ifdef VELMORA_DEVELOPER_BUILD
    if (qEnvironmentVariableIsSet(variable))
        return {qEnvironmentVariable(variable)};
#else
    Q_UNUSED(variable)
#endif
    QStringList paths;
    if (const QString folder = OwnFile::folder(); !folder.isEmpty()) {
        paths << folder + QLatin1Char('/') + fileName
              << folder + QStringLiteral("/velmora/") + fileName;
#ifdef VELMORA_VIDEO_FROM_PROGRAM
        paths << folder + QStringLiteral("/" VELMORA_VIDEO_FROM_PROGRAM "/") + fileName;
#endif
    }
#ifdef VELMORA_DEVELOPER_BUILD
    paths << QStringLiteral(VELMORA_VIDEO_FOLDER "/") + fileName;
#endif
    return paths;
}

} // namespace

QString VideoFiles::find(const QString &fileName, const char *variable, QString *error) {
    const QStringList paths = candidates(fileName, variable);
    for (const QString &path : paths) {
        if (QFileInfo(path).isFile())
            return path;
    }
    *error = QStringLiteral("%1 is not installed; looked for %2")
                 .arg(fileName, paths.join(QStringLiteral(", ")));
    return {};
}

} // namespace velmora
