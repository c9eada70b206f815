// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>

#include <mutex>
#include <optional>

namespace velmora::adserver {

/// What the server serves: the ad table, the media that it names, and the app names of the look-up
/// service. All of it may come from a folder and be overridden from memory.
///
/// A campaign folder holds `campaign.json`, an object in the shape of the ad server's reply
/// ("standard" and "video" arrays of ads), which is sent unchanged, and the media files at the
/// paths that the ads name. An optional "lookup" object in it maps store numbers to app names. The
/// folder is read for every request, so edits show at once. While campaign.json is missing or
/// broken, its last good content is used, and every new error is printed to stderr.
///
/// All members may be called from any thread; a read of the folder happens on the caller's.
class Campaign {
public:
    /// Serves this folder instead of an earlier one. Empty for no folder.
    void setFolder(const QString &folder);

    /// Answers the ad request with exactly these bytes, JSON or not, instead of campaign.json.
    void setReply(const QByteArray &body);

    /// Serves these bytes at a path, instead of a file in the folder. The path begins with "/" and
    /// is not percent-encoded.
    void setMedia(const QString &path, const QByteArray &bytes);

    /// Answers the look-up of a store number ("123456789") with this app name.
    void setLookupName(const QString &id, const QString &trackName);

    /// The body that answers the ad request; without any campaign a table without ads.
    QByteArray reply();

    /// The bytes at a path, or nothing. Only regular files inside the folder are
    /// served: "..", names that begin with a dot and links that lead outside are refused.
    std::optional<QByteArray> media(const QString &path) const;

    /// The app name for a store number, or nothing.
    std::optional<QString> lookupName(const QString &id);

    /// Reads the folder again and returns why campaign.json cannot be used; empty when it can, or
    /// when there is no folder.
    QString errorString();

private:
    void reloadLocked();
    void parseLocked(const QByteArray &bytes);

    mutable std::mutex m_mutex;
    QString m_folder;
    QByteArray m_lastRead;
    QByteArray m_folderReply;
    QString m_error;
    QHash<QString, QString> m_folderNames;
    std::optional<QByteArray> m_reply;
    QHash<QString, QByteArray> m_media;
    QHash<QString, QString> m_names;
};

} // namespace velmora::adserver
