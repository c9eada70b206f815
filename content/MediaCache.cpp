// SPDX-License-Identifier: Apache-2.0
#include "MediaCache.h"

#include "CachesFolder.h"
#include "Log.h"
#include "MediaAddress.h"
#include "SharedUrlSession.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

namespace velmora {

namespace {
constexpr qint64 LargestMedia = 256 * 1024 * 1024;
}

UrlTaskPtr MediaCache::provide(const QUrl &remote, const Completion &completion) {
    const QString name = MediaAddress::cachedName(remote);
    const QString path = CachesFolder::pathFor(name);
    const QFileInfo cached(path);
    if (cached.isFile() && cached.size() > 0) {
        completion(QUrl::fromLocalFile(path));
        return nullptr;
    }
    // Hosts see this line without debug mode, too.
    qCInfo(velmoraLog).noquote() << QStringLiteral("extension: %1").arg(name);
    QString refusal;
    if (path.isEmpty())
        refusal = QStringLiteral("the application has no name yet, and so no caches folder");
    else if (remote.isEmpty())
        refusal = QStringLiteral("the ad names no file");
    else if (cached.isDir())
        refusal = QStringLiteral("a folder has its name");
    if (!refusal.isEmpty()) {
        LOG(QStringLiteral("media %1 cannot be downloaded: %2").arg(name, refusal));
        completion({});
        return nullptr;
    }
    UrlRequest request;
    request.url = remote;
    request.destination = path;
    request.largestBody = LargestMedia;
    return SharedUrlSession::shared().start(
        request, [completion, path, remote](const UrlResponse &response) {
            const bool isThere = response.error.isEmpty() && response.bodySize > 0;
            if (!isThere)
                LOG(QStringLiteral("media %1 could not be downloaded: %2")
                        .arg(remote.toString(), response.error.isEmpty()
                                                    ? QStringLiteral("the body is empty")
                                                    : response.error));
            completion(isThere ? QUrl::fromLocalFile(path) : QUrl());
        });
}

} // namespace velmora
