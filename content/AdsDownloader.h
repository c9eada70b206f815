// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdsCacheInfoStorage.h"
#include "BannerAd.h"
#include "DownloadDelegate.h"
#include "UrlSession.h"
#include "VideoAd.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class Reachability;

/// Keeps the current banner and video ready on disk: asks the ad server for the ad table once a
/// process run, draws ads from it, downloads their media into the caches folder and tells the
/// delegates when ad data is ready. One per process. Main thread only, except the two static
/// look-ups, which block and belong on any other thread.
class AdsDownloader : public std::enable_shared_from_this<AdsDownloader> {
public:
    using Completion = std::function<void()>;
    using FileCompletion = std::function<void(const QUrl &localFile)>;

    /// The process's one downloader, made on first use.
    static const std::shared_ptr<AdsDownloader> &sharedInstance();

    ~AdsDownloader();

    /// Registers a delegate; kept until it says that it is gone. No check for duplicates.
    void addDelegate(const std::shared_ptr<DownloadDelegate> &delegate);
    size_t delegateCount() const { return m_delegates.size(); }

    /// Loads the ad table and, when it is usable, runs downloadAllAdsData(). Does nothing while
    /// ads are removed.
    void startUpdateAllAds();

    /// Tells the delegates, then prepares a video.
    void downloadAllAdsData();

    /// Tells every delegate, in registration order, that it may ask for a banner.
    void downloadBanner();

    /// Draws the next banner and makes it the ready one when its file is there. Completion is
    /// called then, also from inside this call; when there is nothing to draw; and when the
    /// download has failed. Whoever asks while a banner is under way gets that one.
    void downloadBannerWithComplitionBlock(const BannerCompletion &completion);
    /// The banner whose file arrived last.
    const BannerAd &readyBanner() const { return m_readyBanner; }

    /// Draws the next video and makes it the current one when it and its still are there.
    void downloadVideo();

    /// Watches the network and starts a new update cycle when it comes back.
    void checkInternetConnection();

    // The ad table.
    /// The request's body, one line.
    static QString generateRequestAcs();
    /// Loads the ad table. The callback means that the table in force is usable now; the ad
    /// server is asked at most once a process run.
    void downloadJSONWithComplitionBlock(const Completion &completion);
    /// The table in force: the persisted one while offline.
    std::optional<QJsonObject> replyJSON();
    void setReplyJSON(std::optional<QJsonObject> table) { m_replyJSON = std::move(table); }

    /// Looks something up in the store: the first result, or nothing. Blocks; not on the main
    /// thread.
    static std::optional<QJsonObject> JSONSearchByQuery(const QString &query);
    /// The short name of the application that a store link leads to. Blocks; not on the main
    /// thread.
    static QString appNameFromMarketLink(const QString &link, bool isWeb);

    /// Makes sure that a file is in the caches folder. A cached file is handed to the completion
    /// inside the call, and nothing is returned; otherwise the running task is. The completion
    /// gets an empty URL when the file cannot be had.
    UrlTaskPtr downloadDataToCacheDirectoryFromURL(const QUrl &remote,
                                                   const FileCompletion &completion);

    /// The video that is ready; nothing in it before the first. Every read also prepares the
    /// next one, and returns that one when it is cached.
    VideoAd readyVideo();

    // The parts one by one, each as it is at the moment: what is being prepared shows in some of
    // them already.
    /// Local file of the video that is ready; prepares the next one as readyVideo() does.
    QUrl videoURL();
    QUrl bannerURL() const { return m_readyBanner.file; }
    QUrl interstitialVideoURL() const { return m_interstitialVideoURL; }
    QUrl linkVideoURL() const { return m_readyVideo.link; }
    QUrl linkBannerURL() const { return m_readyBanner.link; }
    /// The ads drawn last; empty before the first draw.
    const QJsonObject &videoInfo() const { return m_videoInfo; }
    const QJsonObject &bannerInfo() const { return m_bannerInfo; }

    AdsCacheInfoStorage &cacheStorage() { return m_cacheStorage; }
    bool isUpdateAdsCurrentSession() const { return m_isUpdateAdsCurrentSession; }
    bool isShowBannersFromCache() const { return m_isShowBannersFromCache; }

    /// True once the delegates have been told that ad data is ready: a delegate that registers
    /// later will not be told again.
    bool hasToldDelegates() const;

    /// Lets go of the delegates that are gone, if there is a downloader.
    static void forgetGoneDelegates();

private:
    friend struct DownloaderHolder;
    AdsDownloader();

    std::optional<QJsonObject> getInfoObjectWithConsideringWeightForKey(const QString &key);
    void eraseGoneDelegates();
    void postRequest(const Completion &completion);
    void takeReply(const UrlResponse &response, const Completion &completion);
    void bannerEnded(const QJsonObject &ad, const QUrl &file);
    void videoArrived(const VideoAd &video);
    void stillArrived(const VideoAd &video);
    static QUrl mediaURL(const QJsonObject &ad, const QString &key);

    AdsCacheInfoStorage m_cacheStorage;
    std::optional<QJsonObject> m_replyJSON;
    bool m_isUpdateAdsCurrentSession = false;
    bool m_isShowBannersFromCache = false;

    QUrl m_interstitialVideoURL;
    VideoAd m_readyVideo;
    QJsonObject m_videoInfo;
    QJsonObject m_bannerInfo;
    BannerAd m_readyBanner;
    /// Not empty while a banner is under way.
    std::vector<BannerCompletion> m_bannerAskers;

    UrlTaskPtr m_jsonTask;
    UrlTaskPtr m_videoTask;
    UrlTaskPtr m_videoInterstitialTask;

    std::shared_ptr<Reachability> m_internetReachableFoo;
    std::vector<std::shared_ptr<DownloadDelegate>> m_delegates;
};

} // namespace velmora
