// SPDX-License-Identifier: Apache-2.0
#include "MediaCache.h"

#include "CachesFolder.h"
#include "Log.h"
#include "MainQueue.h"
#include "MediaAddress.h"
#include "MediaCheck.h"
#include "PictureFile.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "SharedUrlSession.h"

#include <Velmora/Support.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>

#include <utility>

namespace velmora {

namespace {

struct Limits {
    qint64 size;
    int timeMs;
};

constexpr Limits limitsOf(MediaKind kind) {
    return kind == MediaKind::Film ? Limits{256 * 1024 * 1024, 600'000}
                                   : Limits{16 * 1024 * 1024, 60'000};
}

// Where a file is until it has been looked at. The process's number keeps the downloads of two
// processes apart.
QString pathBeforeCheck(const QString &path) {
    return path + QChar(CachesFolder::MarkSeparator) +
           QString::number(QCoreApplication::applicationPid());
}

// Gives a downloaded file its name.
// @return why not; empty when it has it
QString keep(const QString &arrived, const QString &path, MediaKind kind) {
    QString refusal;
    // Another process, or another ad with a file of this name, may have been faster.
    const auto isThere = [&] {
        return QFileInfo(path).isFile() && MediaCheck::quickRefusal(path, kind).isEmpty();
    };
    if (!isThere()) {
        refusal = MediaCheck::refusal(arrived, kind);
        if (refusal.isEmpty() && !QFile::rename(arrived, path) && !isThere())
            refusal = QStringLiteral("it could not be given its name");
    }
    QFile::remove(arrived);
    return refusal;
}

/// Ends before Qt is taken down, which a check uses to decode.
class CheckQueue : public SerialQueue {
public:
    CheckQueue() : SerialQueue("velmora-media", AtEnd::Drops) {}
};

/// The cached files that were found usable in this run.
struct UsableFiles {
    QHash<QString, MediaKind> kinds;
};

// An earlier version kept whatever a server sent.
bool isUsable(const QString &path, MediaKind kind) {
    auto &kinds = ProcessRoot::get<UsableFiles>().kinds;
    if (kinds.contains(path) && kinds.value(path) == kind)
        return true;
    if (!MediaCheck::quickRefusal(path, kind).isEmpty())
        return false;
    kinds.insert(path, kind);
    return true;
}

MediaKind other(MediaKind kind) {
    return kind == MediaKind::Film ? MediaKind::Picture : MediaKind::Film;
}

void refuse(const QUrl &remote, const QString &reason) {
    LOG(QStringLiteral("media %1 refused: %2").arg(remote.toString(), reason));
}

void check(const QUrl &remote, const QString &path, MediaKind kind,
           const MediaCache::Completion &completion) {
    PictureFile::prepare();
    const auto work = [=] {
        const QString refusal = keep(pathBeforeCheck(path), path, kind);
        if (!refusal.isEmpty())
            refuse(remote, refusal);
        MainQueue::post([path, completion, isKept = refusal.isEmpty()] {
            if (isKept)
                completion({QUrl::fromLocalFile(path)});
            else
                completion({{}, true});
        });
    };
    ProcessRoot::get<CheckQueue>().run(work);
}

} // namespace

void MediaCache::provide(const QUrl &remote, MediaKind kind, const Completion &completion) {
    const QString name = MediaAddress::cachedName(remote);
    const QString path = CachesFolder::pathFor(name);
    const QFileInfo cached(path);
    if (cached.isFile() && (remote.isEmpty() || isUsable(path, kind))) {
        completion({QUrl::fromLocalFile(path)});
        return;
    }
    const bool isOfOtherKind = cached.isFile() && isUsable(path, other(kind));
    if (cached.isFile() && !isOfOtherKind)
        QFile::remove(path);
    // Hosts see this line without debug mode, too.
    qCInfo(velmoraLog).noquote() << QStringLiteral("extension: %1").arg(name);
    QString refusal;
    if (path.isEmpty())
        refusal = QStringLiteral("the application has no name yet, and so no caches folder");
    else if (remote.isEmpty())
        refusal = QStringLiteral("the ad names no file");
    else if (cached.isDir())
        refusal = QStringLiteral("a folder has its name");
    else if (isOfOtherKind)
        refusal = QStringLiteral("a file of another kind has its name");
    else if (cached.isSymLink())
        refusal = QStringLiteral("a symbolic link has its name"); // to a file that is elsewhere
    if (!refusal.isEmpty()) {
        refuse(remote, refusal);
        completion({{}, cached.exists() || cached.isSymLink()});
        return;
    }
    UrlRequest request;
    request.url = remote;
    request.destination = pathBeforeCheck(path);
    request.largestBody = limitsOf(kind).size;
    request.wholeTimeoutMs = limitsOf(kind).timeMs;
    SharedUrlSession::shared().start(
        request, [remote, path, kind, completion](const UrlResponse &response) {
            if (response.error.isEmpty() && response.bodySize > 0) {
                check(remote, path, kind, completion);
                return;
            }
            LOG(QStringLiteral("media %1 could not be downloaded: %2")
                    .arg(remote.toString(), response.error.isEmpty()
                                                ? QStringLiteral("the body is empty")
                                                : response.error));
            completion({{}, response.couldNotWrite});
        });
}

void MediaCache::discard(const QUrl &localFile) {
    const QString path = localFile.toLocalFile();
    LOG(QStringLiteral("media %1 is broken and was deleted").arg(path));
    ProcessRoot::get<UsableFiles>().kinds.remove(path);
    QFile::remove(path);
}

} // namespace velmora
