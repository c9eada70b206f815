// SPDX-License-Identifier: Apache-2.0
#include "Workspace.h"

#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

namespace velmora {

namespace {

// The freedesktop.org files that list the default applications of MIME types and schemes.
QStringList associationLists() {
    return QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation,
                                     QStringLiteral("mimeapps.list")) +
           QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation,
                                     QStringLiteral("mimeapps.list")) +
           QStandardPaths::locateAll(QStandardPaths::ApplicationsLocation,
                                     QStringLiteral("mimeinfo.cache"));
}

} // namespace

bool Workspace::hasHandlerFor(const QString &scheme) {
    const QByteArray entry = "x-scheme-handler/" + scheme.toLatin1() + '=';
    const QStringList lists = associationLists();
    for (const QString &list : lists) {
        QFile file(list);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        while (!file.atEnd()) {
            const QByteArray line = file.readLine().trimmed();
            if (line.startsWith(entry) && line.size() > entry.size())
                return true;
        }
    }
    return false;
}

} // namespace velmora
