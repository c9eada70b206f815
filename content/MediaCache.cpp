// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"

#include "AdKeys.h"
#include "CachesFolder.h"
#include "Deployment.h"
#include "Log.h"
#include "MediaAddress.h"
#include "SharedUrlSession.h"
#include "StoreLink.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

#include <utility>

namespace velmora {

namespace {
constexpr qint64 LargestMedia = 256 * 1024 * 1024;
}

QUrl AdsDownloader::mediaURL(const QJsonObject &ad, const QString &key) {
    return MediaAddress::from(Deployment::current().acsURL, ad.value(key)).remote;
}

UrlTaskPtr AdsDownloader::downloadDataToCacheDirectoryFromURL(const QUrl &remote,
                                                              const FileCompletion &completion) {
    const QString name = MediaAddress::cachedName(remote);
    const QString path = CachesFolder::pathFor(name);
    const QFileInfo cached(path);
    if (cached.isFile() && cached.size() > 0) {
        completion(QUrl::fromLocalFile(path));
        return nullptr;
    }
    qCInfo(velmoraLog).noquote() << QStringLiteral("extension: %1").arg(name);
    QString refusal;
    if (path.isEmpty())
        refusal = QStringLiteral("the application has no name yet, and so no caches folder");
    else if (remote.isEmpty())
        refusal = QStringLiteral("the ad names no file");
    else if (cached.isDir())
        refusal = QStringLiteral("a folder has its name");
    if (!refusal.isEmpty()) {
        LOG(QStringLiteral("media %1 cannot be had: %2").arg(name, refusal));
        completion({});
        return nullptr;
    }
    UrlRequest request;
    request.url = remote;
    request.destination = path;
    request.largestBody = LargestMedia;
    return SharedUrlSession::shared().start(
        request, [completion, path, remote](const UrlResponse &response) {
            const bool arrived = response.error.isEmpty() && response.bodySize > 0;
            if (!arrived)
                LOG(QStringLiteral("media %1 could not be downloaded: %2")
                        .arg(remote.toString(), response.error.isEmpty()
                                                    ? QStringLiteral("the body is empty")
                                                    : response.error));
            completion(arrived ? QUrl::fromLocalFile(path) : QUrl());
        });
}

void AdsDownloader::downloadBannerWithComplitionBlock(const BannerCompletion &completion) {
    if (!m_bannerAskers.empty()) {
        LOG(QStringLiteral("a banner is being downloaded already and will serve"));
        m_bannerAskers.push_back(completion);
        return;
    }
    const auto drawn =
        replyJSON() ? getInfoObjectWithConsideringWeightForKey(kMainBannerKey) : std::nullopt;
    if (!drawn) {
        LOG(QStringLiteral("there is no banner to draw"));
        if (completion)
            completion(m_readyBanner, false);
        return;
    }
    m_bannerInfo = *drawn;
    m_bannerAskers.push_back(completion);
    downloadDataToCacheDirectoryFromURL(mediaURL(*drawn, kBannerImgURL),
                                        [weak = weak_from_this(), ad = *drawn](const QUrl &file) {
                                            if (const auto self = weak.lock())
                                                self->bannerEnded(ad, file);
                                        });
}

void AdsDownloader::bannerEnded(const QJsonObject &ad, const QUrl &file) {
    if (!file.isEmpty()) {
        m_readyBanner = {file, StoreLink::bannerLink(ad.value(kBannerURL).toString()),
                         ad.value(kBannerName).toString()};
        m_cacheStorage.addBannerInfo(ad);
    }
    // Whoever is told may ask anew.
    const auto askers = std::exchange(m_bannerAskers, {});
    const BannerAd ready = m_readyBanner;
    for (const BannerCompletion &completion : askers) {
        if (completion)
            completion(ready, file.isEmpty());
    }
}

void AdsDownloader::downloadVideo() {
    if (m_videoTask && m_videoTask->isRunning())
        return;
    const auto drawn =
        replyJSON() ? getInfoObjectWithConsideringWeightForKey(kMainVideoKey) : std::nullopt;
    if (!drawn) {
        LOG(QStringLiteral("there is no video to draw"));
        return;
    }
    m_videoInfo = *drawn;
    // Another may be drawn while this one's still is under way, so it takes its ad along.
    m_videoTask = downloadDataToCacheDirectoryFromURL(
        mediaURL(*drawn, kVideoCapture), [weak = weak_from_this(), ad = *drawn](const QUrl &file) {
            const auto self = weak.lock();
            if (self && !file.isEmpty())
                self->videoArrived({file, {}, {}, ad});
        });
}

void AdsDownloader::videoArrived(const VideoAd &video) {
    m_interstitialVideoURL.clear();
    m_videoInterstitialTask = downloadDataToCacheDirectoryFromURL(
        mediaURL(video.info, kVideoImage), [weak = weak_from_this(), video](const QUrl &still) {
            const auto self = weak.lock();
            if (!self || still.isEmpty())
                return;
            const QUrl link = StoreLink::videoLink(video.info.value(kVideoURL).toString());
            self->stillArrived({video.file, still, link, video.info});
        });
}

void AdsDownloader::stillArrived(const VideoAd &video) {
    m_readyVideo = video;
    m_interstitialVideoURL = video.still;
    m_cacheStorage.addVideoInfo(video.info);
}

VideoAd AdsDownloader::readyVideo() {
    downloadVideo();
    const QString file = m_readyVideo.file.toLocalFile();
    if (!file.isEmpty() && !QFileInfo::exists(file)) {
        LOG(QStringLiteral("the video that was ready is gone from the caches folder: %1")
                .arg(file));
        m_readyVideo = {};
    }
    return m_readyVideo;
}

QUrl AdsDownloader::videoURL() {
    return readyVideo().file;
}

} // namespace velmora
