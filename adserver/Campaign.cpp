// SPDX-License-Identifier: Apache-2.0
#include "adserver/Campaign.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <cstdio>

namespace velmora::adserver {

namespace {

const char EmptyTable[] = R"({"standard":[],"video":[]})";

bool isPlainPath(const QString &path) {
    if (!path.startsWith(QLatin1Char('/')) || path.contains(QChar(u'\0')) ||
        path.contains(QLatin1Char('\\')))
        return false;
    const QStringList names = path.mid(1).split(QLatin1Char('/'));
    return std::all_of(names.begin(), names.end(), [](const QString &name) {
        return !name.isEmpty() && !name.startsWith(QLatin1Char('.'));
    });
}

} // namespace

void Campaign::setFolder(const QString &folder) {
    const std::lock_guard lock(m_mutex);
    m_folder = folder;
    m_lastRead.clear();
    m_folderReply.clear();
    m_folderNames.clear();
    m_error.clear();
}

void Campaign::setReply(const QByteArray &body) {
    const std::lock_guard lock(m_mutex);
    m_reply = body;
}

void Campaign::setMedia(const QString &path, const QByteArray &bytes) {
    const std::lock_guard lock(m_mutex);
    m_media.insert(path, bytes);
}

void Campaign::setLookupName(const QString &id, const QString &trackName) {
    const std::lock_guard lock(m_mutex);
    m_names.insert(id, trackName);
}

QByteArray Campaign::reply() {
    const std::lock_guard lock(m_mutex);
    if (m_reply)
        return *m_reply;
    reloadLocked();
    return m_folderReply.isEmpty() ? QByteArray(EmptyTable) : m_folderReply;
}

std::optional<QByteArray> Campaign::media(const QString &path) const {
    QString folder;
    {
        const std::lock_guard lock(m_mutex);
        if (const auto found = m_media.constFind(path); found != m_media.constEnd())
            return *found;
        folder = m_folder;
    }
    if (folder.isEmpty() || !isPlainPath(path))
        return std::nullopt;
    const QString root = QFileInfo(folder).canonicalFilePath();
    const QString target = QFileInfo(folder + path).canonicalFilePath();
    if (root.isEmpty() || !target.startsWith(root + QLatin1Char('/')) ||
        !QFileInfo(target).isFile())
        return std::nullopt;
    QFile file(target);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

std::optional<QString> Campaign::lookupName(const QString &id) {
    const std::lock_guard lock(m_mutex);
    reloadLocked();
    for (const auto *names : {&m_names, &m_folderNames})
        if (const auto found = names->constFind(id); found != names->constEnd())
            return *found;
    return std::nullopt;
}

QString Campaign::errorString() {
    const std::lock_guard lock(m_mutex);
    reloadLocked();
    return m_error;
}

// Compares the file's bytes and not its time stamp, which may be the same after two quick edits.
void Campaign::reloadLocked() {
    if (m_folder.isEmpty())
        return;
    const QString before = m_error;
    QFile file(QDir(m_folder).filePath(QStringLiteral("campaign.json")));
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = file.fileName() + QStringLiteral(": ") + file.errorString();
        m_lastRead.clear();
    } else if (const QByteArray bytes = file.readAll(); bytes.isEmpty() || bytes != m_lastRead) {
        m_lastRead = bytes;
        parseLocked(bytes);
    }
    if (!m_error.isEmpty() && m_error != before)
        std::fprintf(stderr, "%s\n", qPrintable(m_error));
}

void Campaign::parseLocked(const QByteArray &bytes) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (!document.isObject()) {
        m_error = QStringLiteral("%1/campaign.json: %2 (offset %3)")
                      .arg(m_folder, error.error == QJsonParseError::NoError
                                         ? QStringLiteral("not an object")
                                         : error.errorString())
                      .arg(error.offset);
        return;
    }
    m_error.clear();
    m_folderReply = bytes;
    m_folderNames.clear();
    const QJsonObject names = document.object().value(QLatin1String("lookup")).toObject();
    for (auto name = names.begin(); name != names.end(); ++name)
        m_folderNames.insert(name.key(), name.value().toString());
}

} // namespace velmora::adserver
