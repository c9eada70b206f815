#include "content/AdsDownloader.h"

#include "Support/Deployment.h"
#include "Support/Log.h"
#include "Support/SharedUrlSession.h"
#include "content/AdKeys.h"
#include "content/CachesFolder.h"
#include "content/MediaAddress.h"
#include "content/StoreLink.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

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
    if (remote.isEmpty())
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

void AdsDownloader::downloadBannerWithComplitionBlock(const Completion &completion) {
    if (m_bannerTask && m_bannerTask->isRunning()) {
        LOG(QStringLiteral("a banner is being downloaded already"));
        return;
    }
    const auto drawn =
        replyJSON() ? getInfoObjectWithConsideringWeightForKey(kMainBannerKey) : std::nullopt;
    if (!drawn) {
        LOG(QStringLiteral("there is no banner to draw"));
        if (completion)
            completion();
        return;
    }
    m_bannerInfo = *drawn;
    m_bannerTask = downloadDataToCacheDirectoryFromURL(
        mediaURL(m_bannerInfo, kBannerImgURL),
        [weak = weak_from_this(), completion](const QUrl &file) {
            const auto self = weak.lock();
            if (self && !file.isEmpty())
                self->bannerArrived(file, completion);
        });
}

void AdsDownloader::bannerArrived(const QUrl &file, const Completion &completion) {
    m_bannerURL = file;
    m_linkBannerURL = StoreLink::bannerLink(m_bannerInfo.value(kBannerURL).toString());
    m_cacheStorage.addBannerInfo(m_bannerInfo);
    if (completion)
        completion();
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
    m_videoTask = downloadDataToCacheDirectoryFromURL(mediaURL(m_videoInfo, kVideoCapture),
                                                      [weak = weak_from_this()](const QUrl &video) {
                                                          const auto self = weak.lock();
                                                          if (self && !video.isEmpty())
                                                              self->videoArrived(video);
                                                      });
}

void AdsDownloader::videoArrived(const QUrl &video) {
    m_interstitialVideoURL.clear();
    m_videoInterstitialTask = downloadDataToCacheDirectoryFromURL(
        mediaURL(m_videoInfo, kVideoImage), [weak = weak_from_this(), video](const QUrl &still) {
            const auto self = weak.lock();
            if (self && !still.isEmpty())
                self->stillArrived(video, still);
        });
}

void AdsDownloader::stillArrived(const QUrl &video, const QUrl &still) {
    m_videoURL = video;
    m_linkVideoURL = StoreLink::videoLink(m_videoInfo.value(kVideoURL).toString());
    m_interstitialVideoURL = still;
    m_cacheStorage.addVideoInfo(m_videoInfo);
}

QUrl AdsDownloader::videoURL() {
    downloadVideo();
    return m_videoURL;
}

} // namespace velmora
