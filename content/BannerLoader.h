// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "BannerAd.h"
#include "MediaCache.h"
#include "TimeSource.h"

#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <memory>
#include <vector>

namespace velmora {

class AdTable;
class DrawableAds;

/// Draws banner ads and downloads their pictures. Main thread only.
class BannerLoader : public std::enable_shared_from_this<BannerLoader> {
public:
    explicit BannerLoader(std::shared_ptr<AdTable> table) : m_table(std::move(table)) {}

    /// Draws the next banner and makes it the ready one once its picture is cached. The completion,
    /// which may be empty, is called then, when the picture could not be downloaded, or there is
    /// nothing to draw; also inside this call. A call while a banner is loading draws
    /// nothing and gets that banner, unless that has taken as long as a turn of the rotation: then
    /// the next one is drawn, so that one slow picture does not hold up the others.
    ///
    /// An ad whose picture is unusable is not drawn again in this run.
    void loadNext(const BannerCompletion &completion);

    /// The banner whose picture was cached last; empty before the first.
    const BannerAd &ready() const { return m_ready; }
    /// The ad drawn last, which the next draw leaves out; empty before the first.
    const QJsonObject &drawnAd() const { return m_drawnAd; }

private:
    /// A banner whose picture is loading.
    struct Load {
        QJsonObject ad;
        TimeSource::Duration since;
        std::vector<BannerCompletion> completions;
    };

    void drawAndLoad(const DrawableAds &ads, const BannerCompletion &completion);
    void pictureLoaded(const QJsonObject &ad, const MediaCache::Result &picture);

    const std::shared_ptr<AdTable> m_table;
    QJsonObject m_drawnAd;
    BannerAd m_ready;
    std::vector<Load> m_loads; // the newest last
};

} // namespace velmora
