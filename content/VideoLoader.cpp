// SPDX-License-Identifier: Apache-2.0
#include "VideoLoader.h"

#include "AdKeys.h"
#include "AdTable.h"
#include "MediaAddress.h"
#include "StoreLink.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

namespace velmora {

void VideoLoader::loadNext() {
    m_table->whenReady([weak = weak_from_this()](const DrawableAds &ads) {
        if (const auto self = weak.lock())
            self->drawAndLoad(ads);
    });
}

void VideoLoader::drawAndLoad(const DrawableAds &ads) {
    if (m_isLoadingFilm)
        return;
    const auto drawn = ads.draw(kMainVideoKey, {});
    if (!drawn) {
        LOG(QStringLiteral("there is no video to draw"));
        return;
    }
    m_drawnAd = *drawn;
    m_isLoadingFilm = true;
    // The ad travels with its downloads: another may be drawn before its still is there.
    MediaCache::provide(MediaAddress::ofAd(*drawn, kVideoCapture).remote, MediaKind::Film,
                        [weak = weak_from_this(), ad = *drawn](const MediaCache::Result &film) {
                            if (const auto self = weak.lock())
                                self->videoLoaded(ad, film);
                        });
}

void VideoLoader::videoLoaded(const QJsonObject &ad, const MediaCache::Result &film) {
    m_isLoadingFilm = false;
    if (film.isHopeless)
        m_table->rest(ad);
    if (film.file.isEmpty())
        return;
    m_still.clear();
    MediaCache::provide(
        MediaAddress::ofAd(ad, kVideoImage).remote, MediaKind::Picture,
        [weak = weak_from_this(), ad, film = film.file](const MediaCache::Result &still) {
            if (const auto self = weak.lock())
                self->stillLoaded(ad, film, still);
        });
}

void VideoLoader::stillLoaded(const QJsonObject &ad, const QUrl &film,
                              const MediaCache::Result &still) {
    if (still.isHopeless)
        m_table->rest(ad);
    if (still.file.isEmpty())
        return;
    m_ready = {film, still.file, StoreLink::videoLink(ad.value(kVideoURL).toString()), ad};
    m_still = still.file;
    m_table->cacheStorage().addVideoInfo(ad);
}

VideoAd VideoLoader::videoToPlay() {
    loadNext();
    if (!m_ready.file.isEmpty() && !hasVideoToPlay()) {
        LOG(QStringLiteral("the video that was ready is gone from the caches folder: %1")
                .arg(m_ready.file.toLocalFile()));
        m_ready = {};
    }
    return m_ready;
}

bool VideoLoader::hasVideoToPlay() const {
    return QFileInfo::exists(m_ready.file.toLocalFile());
}

} // namespace velmora
