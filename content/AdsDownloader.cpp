// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"

#include "AdKeys.h"
#include "BannerLoader.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SharedUrlSession.h"
#include "StoreLookup.h"
#include "Switches.h"
#include "VideoLoader.h"

#include <Velmora/Reachability.h>

namespace velmora {

struct DownloaderHolder {
    DownloaderHolder() {
        // Made before the downloader, so that it is destroyed after it.
        SharedUrlSession::shared();
        downloader.reset(new AdsDownloader);
        downloader->checkInternetConnection();
    }
    ~DownloaderHolder() {
        // A delegate and the downloader hold each other.
        downloader->m_delegates.clear();
        // The disk queue is destroyed next and waits, and the delegates' owners may still be there.
        downloader->m_table->cacheStorage().stopLoading();
    }

    std::shared_ptr<AdsDownloader> downloader;
};

AdsDownloader::AdsDownloader()
    : m_table(std::make_shared<AdTable>()),
      m_banners(std::make_shared<BannerLoader>(m_table)),
      m_videos(std::make_shared<VideoLoader>(m_table)) {}

AdsDownloader::~AdsDownloader() {
    if (m_internetReachableFoo)
        m_internetReachableFoo->stopNotifier();
}

const std::shared_ptr<AdsDownloader> &AdsDownloader::sharedInstance() {
    return ProcessRoot::get<DownloaderHolder>().downloader;
}

void AdsDownloader::forgetGoneDelegates() {
    if (auto *holder = ProcessRoot::existing<DownloaderHolder>())
        holder->downloader->eraseGoneDelegates();
}

void AdsDownloader::eraseGoneDelegates() {
    std::erase_if(m_delegates, [](const auto &known) { return known->isGone(); });
}

void AdsDownloader::addDelegate(const std::shared_ptr<DownloadDelegate> &delegate) {
    eraseGoneDelegates();
    m_delegates.push_back(delegate);
}

void AdsDownloader::startUpdateAllAds() {
    if (Switches::isADSRemoved())
        return;
    downloadJSONWithComplitionBlock([weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->downloadAllAdsData();
    });
}

void AdsDownloader::downloadAllAdsData() {
    downloadBanner();
    // After what the delegates post: a banner is seen at once, and need not share the connection
    // with a film.
    MainQueue::post([weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->downloadVideo();
    });
}

void AdsDownloader::downloadBanner() {
    eraseGoneDelegates();
    // A copy: a delegate may register another.
    const auto delegates = m_delegates;
    for (const auto &delegate : delegates)
        delegate->endDownloadСonfiguration();
}

void AdsDownloader::checkInternetConnection() {
    m_internetReachableFoo = Reachability::reachabilityForInternetConnection();
    if (!m_internetReachableFoo)
        return;
    m_internetReachableFoo->reachableBlock = [weak = weak_from_this()](Reachability *) {
        MainQueue::post([weak] {
            if (const auto self = weak.lock())
                self->startUpdateAllAds();
        });
    };
    m_internetReachableFoo->startNotifier();
}

void AdsDownloader::downloadJSONWithComplitionBlock(const AdTable::Completion &completion) {
    m_table->load(completion);
}

std::optional<QJsonObject>
AdsDownloader::getInfoObjectWithConsideringWeightForKey(const QString &key) {
    return m_table->draw(key, key == kMainBannerKey ? bannerInfo() : QJsonObject());
}

void AdsDownloader::downloadBannerWithComplitionBlock(const BannerCompletion &completion) {
    m_banners->loadNext(completion);
}

const BannerAd &AdsDownloader::readyBanner() const {
    return m_banners->ready();
}

const QJsonObject &AdsDownloader::bannerInfo() const {
    return m_banners->drawnAd();
}

void AdsDownloader::downloadVideo() {
    m_videos->loadNext();
}

VideoAd AdsDownloader::readyVideo() {
    return m_videos->videoToPlay();
}

bool AdsDownloader::hasReadyVideo() const {
    return m_videos->hasVideoToPlay();
}

QUrl AdsDownloader::interstitialVideoURL() const {
    return m_videos->still();
}

QUrl AdsDownloader::linkVideoURL() const {
    return m_videos->ready().link;
}

const QJsonObject &AdsDownloader::videoInfo() const {
    return m_videos->drawnAd();
}

void AdsDownloader::downloadDataToCacheDirectoryFromURL(const QUrl &remote, MediaKind kind,
                                                        const MediaCache::Completion &completion) {
    MediaCache::provide(remote, kind, completion);
}

std::optional<QJsonObject> AdsDownloader::JSONSearchByQuery(const QString &query) {
    return StoreLookup::firstResult(query);
}

QString AdsDownloader::appNameFromMarketLink(const QString &link, bool isWeb) {
    return StoreLookup::shortName(link, isWeb);
}

} // namespace velmora
