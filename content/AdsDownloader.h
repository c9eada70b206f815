// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdTable.h"
#include "BannerAd.h"
#include "DownloadDelegate.h"
#include "MediaCache.h"
#include "VideoAd.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class BannerLoader;
class Reachability;
class VideoLoader;

/// Keeps a banner and a video ready on disk for the whole process, and tells its delegates when
/// they may ask for a banner. The work is done by AdTable (request and draw), BannerLoader,
/// VideoLoader, MediaCache (downloads) and StoreLookup; this class runs the update cycle. Main
/// thread only, except the two static look-ups, which block and are refused there.
class AdsDownloader : public std::enable_shared_from_this<AdsDownloader> {
public:
    /// The process's one downloader, made on first use.
    static const std::shared_ptr<AdsDownloader> &sharedInstance();

    ~AdsDownloader();

    // The update cycle.

    /// Registers a delegate, which is kept until its isGone() is true. One that is registered twice
    /// is told twice.
    void addDelegate(const std::shared_ptr<DownloadDelegate> &delegate);
    size_t delegateCount() const { return m_delegates.size(); }
    /// True when the delegates have been told for the last time in this run: a delegate that
    /// registers now will not be told, and asks for its banner at once.
    bool hasToldDelegates() const { return m_table->isSettled(); }
    /// Releases the delegates that are gone. Makes no downloader if there is none.
    static void forgetGoneDelegates();

    /// Loads the ad table and calls downloadAllAdsData() once ads may be drawn. Does nothing while
    /// ads are removed.
    void startUpdateAllAds();
    /// Calls downloadBanner(), then downloadVideo().
    void downloadAllAdsData();
    /// Tells every delegate, in the order of registration, that it may ask for a banner.
    void downloadBanner();
    /// Starts the reachability monitor, which starts an update cycle whenever the internet becomes
    /// reachable.
    void checkInternetConnection();

    // The ad table; see AdTable.

    static QString generateRequestAcs() { return AdTable::requestBody(); }
    void downloadJSONWithComplitionBlock(const AdTable::Completion &completion);
    std::optional<QJsonObject> replyJSON() { return m_table->current(); }
    void setReplyJSON(const std::optional<QJsonObject> &table) {
        m_table->setReply(AdReply::of(table));
    }
    std::optional<QJsonObject> getInfoObjectWithConsideringWeightForKey(const QString &key);
    bool isUpdateAdsCurrentSession() const { return m_table->hasReply(); }

    // Banners; see BannerLoader.

    void downloadBannerWithComplitionBlock(const BannerCompletion &completion);
    const BannerAd &readyBanner() const;
    QUrl bannerURL() const { return readyBanner().file; }
    const QJsonObject &bannerInfo() const;

    // Videos; see VideoLoader.

    void downloadVideo();
    /// The video to play now. Every call also loads the next one.
    VideoAd readyVideo();
    /// Whether readyVideo() would return a video. Loads nothing.
    bool hasReadyVideo() const;
    /// The file of readyVideo(). Every call also loads the next one.
    QUrl videoURL() { return readyVideo().file; }
    QUrl interstitialVideoURL() const;
    QUrl linkVideoURL() const;
    const QJsonObject &videoInfo() const;

    // Downloads and look-ups; see MediaCache and StoreLookup.

    static void downloadDataToCacheDirectoryFromURL(const QUrl &remote, MediaKind kind,
                                                    const MediaCache::Completion &completion);
    static std::optional<QJsonObject> JSONSearchByQuery(const QString &query);
    static QString appNameFromMarketLink(const QString &link, bool isWeb);

private:
    friend struct DownloaderHolder;
    AdsDownloader();

    void eraseGoneDelegates();

    const std::shared_ptr<AdTable> m_table;
    const std::shared_ptr<BannerLoader> m_banners;
    const std::shared_ptr<VideoLoader> m_videos;
    std::shared_ptr<Reachability> m_internetReachableFoo;
    std::vector<std::shared_ptr<DownloadDelegate>> m_delegates;
};

} // namespace velmora
