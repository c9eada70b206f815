// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"

#include "AdKeys.h"
#include "AdScreening.h"
#include "Log.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "SharedUrlSession.h"
#include "Switches.h"
#include "WeightedSelection.h"

#include <Velmora/Reachability.h>
#include <Velmora/Support.h>

namespace velmora {

struct DownloaderHolder {
    DownloaderHolder() {
        // Asked for now, so that the session is there for as long as the downloader.
        SharedUrlSession::shared();
        downloader.reset(new AdsDownloader);
        downloader->checkInternetConnection();
    }
    // Delegates keep their downloader, as it keeps them.
    ~DownloaderHolder() { downloader->m_delegates.clear(); }

    std::shared_ptr<AdsDownloader> downloader;
};

AdsDownloader::AdsDownloader() = default;

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

bool AdsDownloader::hasToldDelegates() const {
    const bool asking = m_jsonTask && m_jsonTask->isRunning();
    return m_isUpdateAdsCurrentSession || (asking && m_isShowBannersFromCache);
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
    downloadVideo();
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

std::optional<QJsonObject>
AdsDownloader::getInfoObjectWithConsideringWeightForKey(const QString &key) {
    const std::optional<QJsonObject> table = replyJSON();
    if (!table)
        return {};
    const bool isVideo = key == kMainVideoKey;
    return WeightedSelection::draw(AdScreening::usableAds(table->value(key), key),
                                   isVideo ? QJsonObject() : m_bannerInfo,
                                   isVideo ? kVideoPriority : kBannerPriority);
}

} // namespace velmora
