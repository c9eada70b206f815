// SPDX-License-Identifier: Apache-2.0
#include "AdTableFile.h"

#include <Velmora/Support.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace velmora {

std::optional<AdCollection> AdTableFile::read(const QString &path,
                                              const std::function<bool()> &isWanted) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    AdCollection table;
    bool isUsable = false;
    int unreadable = 0;
    // read() allocates as much as it is asked for.
    const QList<QByteArray> lines = file.read(std::min(file.size(), LargestSize)).split('\n');
    for (const QByteArray &line : lines) {
        if (!isWanted())
            break;
        const QJsonDocument part = QJsonDocument::fromJson(line);
        if (part.isObject()) {
            table.merge(part.object());
            isUsable = true;
        } else if (!line.isEmpty()) {
            ++unreadable;
        }
    }
    if (unreadable > 0)
        LOG(QStringLiteral("%1 lines of the ad table %2 are unreadable").arg(unreadable).arg(path));
    return isUsable ? std::optional(std::move(table)) : std::nullopt;
}

bool AdTableFile::append(const QString &path, const QJsonObject &part) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    // Opening a pipe would wait for its reader.
    if (file.exists() && !QFileInfo(path).isFile())
        return false;
    // Unbuffered, so that the line is written at once and is not mixed with another process's.
    if (!file.open(QIODevice::Append | QIODevice::Unbuffered))
        return false;
    const qint64 before = file.size();
    if (before > LargestSize)
        return false;
    // Begins with the end of the line before, which may have been cut off.
    const QByteArray line = '\n' + QJsonDocument(part).toJson(QJsonDocument::Compact);
    const qint64 written = file.write(line);
    if (written == line.size())
        return true;
    if (written > 0 && file.size() == before + written)
        file.resize(before);
    return false;
}

} // namespace velmora
