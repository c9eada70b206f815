// SPDX-License-Identifier: Apache-2.0
#include "AdTableFile.h"

#include <Velmora/Support.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace velmora {

namespace {

constexpr qsizetype SizeOfWrite = 64 * 1024;

bool appendLines(QFile &file, const QByteArray &lines) {
    const qint64 before = file.size();
    const qint64 written = file.write(lines);
    if (written == lines.size())
        return true;
    // Unless another process has written after it.
    if (written > 0 && file.size() == before + written)
        file.resize(before);
    return false;
}

} // namespace

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

size_t AdTableFile::append(const QString &path, const std::vector<QJsonObject> &parts) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    // Opening a pipe would wait for its reader.
    if (file.exists() && !QFileInfo(path).isFile())
        return 0;
    // Unbuffered, so that lines are written at once and are not mixed with another process's.
    if (!file.open(QIODevice::Append | QIODevice::Unbuffered) || file.size() > LargestSize)
        return 0;
    size_t written = 0;
    QByteArray lines;
    for (size_t i = 0; i < parts.size(); ++i) {
        // Begins with the end of the line before, which may have been cut off.
        lines += '\n' + QJsonDocument(parts[i]).toJson(QJsonDocument::Compact);
        if (lines.size() < SizeOfWrite && i + 1 < parts.size())
            continue;
        if (!appendLines(file, lines))
            break;
        lines.clear();
        written = i + 1;
    }
    return written;
}

} // namespace velmora
