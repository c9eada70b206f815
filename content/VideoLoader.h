// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MediaCache.h"
#include "VideoAd.h"

#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <memory>

namespace velmora {

class AdTable;
class DrawableAds;

/// Draws video ads and downloads each one's video and still image. An ad with an unusable file is
/// not drawn again in this run. Main thread only.
class VideoLoader : public std::enable_shared_from_this<VideoLoader> {
public:
    explicit VideoLoader(std::shared_ptr<AdTable> table) : m_table(std::move(table)) {}

    /// Draws the next video ad and makes it the ready one once its video and then its still are
    /// cached, which may be inside this call. Does nothing while a video file is downloading.
    void loadNext();

    /// Calls loadNext(), then returns the ad that is ready: empty before the first, and when the
    /// video file has been deleted since.
    VideoAd videoToPlay();
    /// Whether there is a video that is ready and its file still exists.
    bool hasVideoToPlay() const;

    /// The ad that is ready, whether or not its file still exists.
    const VideoAd &ready() const { return m_ready; }
    /// The still of the ad that is ready; empty while the next ad's still is downloading, or when
    /// that could not be downloaded.
    const QUrl &still() const { return m_still; }
    /// The ad drawn last; empty before the first.
    const QJsonObject &drawnAd() const { return m_drawnAd; }

private:
    void drawAndLoad(const DrawableAds &ads);
    void videoLoaded(const QJsonObject &ad, const MediaCache::Result &film);
    void stillLoaded(const QJsonObject &ad, const QUrl &film, const MediaCache::Result &still);

    const std::shared_ptr<AdTable> m_table;
    QJsonObject m_drawnAd;
    VideoAd m_ready;
    QUrl m_still;
    bool m_isLoadingFilm = false;
};

} // namespace velmora
