// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>

#include <mutex>
#include <optional>

namespace velmora::adserver {

/// What the server has to offer: the ad table, the media it names, and the app names of the
/// look-up service. It comes from a folder, from memory, or both, where memory wins.
///
/// A campaign folder holds `campaign.json`, an object in the shape of the ad server's reply
/// ("standard" and "video" arrays of ads), sent as it stands, and the media files at the paths
/// that the ads name. An optional "lookup" object in it maps store numbers to app names. The folder
/// is read anew with every request, so edits show at once. A campaign.json that is missing or
/// broken keeps the last good one in force and is reported on stderr, once for each new reason.
///
/// All members may be called from any thread; a read of the folder happens on the caller's.
class Campaign {
public:
    /// Serves this folder from now on and forgets what an earlier one held. Empty: no folder.
    void setFolder(const QString &folder);

    /// Answers the ad request with exactly these bytes, JSON or not, instead of campaign.json.
    void setReply(const QByteArray &body);

    /// Serves these bytes at the path, which begins with "/" and stands as the client sees it
    /// (percent-decoded), whatever the folder holds there.
    void setMedia(const QString &path, const QByteArray &bytes);

    /// Answers the look-up of a store number ("123456789") with this app name.
    void setLookupName(const QString &id, const QString &trackName);

    /// The body that answers the ad request. Without any campaign a table with no ads.
    QByteArray reply();

    /// The bytes at a path, nothing if there are none. Only regular files inside the folder are
    /// served: "..", names that begin with a dot and links that lead outside are refused.
    std::optional<QByteArray> media(const QString &path) const;

    /// The app name for a store number, nothing if it is unknown.
    std::optional<QString> lookupName(const QString &id);

    /// Why campaign.json could not be used at the last attempt; empty when it was fine or there
    /// is no folder.
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
