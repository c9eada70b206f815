// SPDX-License-Identifier: Apache-2.0
#include "VideoLoader.h"

#include "AdKeys.h"
#include "AdTable.h"
#include "MediaAddress.h"
#include "MediaCache.h"
#include "StoreLink.h"

#include <Velmora/Support.h>

#include <QtCore/QFileInfo>

namespace velmora {

void VideoLoader::loadNext() {
    if (m_videoTask && m_videoTask->isRunning())
        return;
    const auto drawn = m_table->draw(kMainVideoKey);
    if (!drawn) {
        LOG(QStringLiteral("there is no video to draw"));
        return;
    }
    m_drawnAd = *drawn;
    // The ad is passed along, because another one may be drawn before its still is there.
    m_videoTask = MediaCache::provide(MediaAddress::ofAd(*drawn, kVideoCapture).remote,
                                      [weak = weak_from_this(), ad = *drawn](const QUrl &file) {
                                          const auto self = weak.lock();
                                          if (self && !file.isEmpty())
                                              self->videoLoaded(ad, file);
                                      });
}

void VideoLoader::videoLoaded(const QJsonObject &ad, const QUrl &file) {
    m_still.clear();
    MediaCache::provide(MediaAddress::ofAd(ad, kVideoImage).remote,
                        [weak = weak_from_this(), ad, file](const QUrl &still) {
                            const auto self = weak.lock();
                            if (!self || still.isEmpty())
                                return;
                            const QUrl link = StoreLink::videoLink(ad.value(kVideoURL).toString());
                            self->stillLoaded({file, still, link, ad});
                        });
}

void VideoLoader::stillLoaded(const VideoAd &video) {
    m_ready = video;
    m_still = video.still;
    m_table->cacheStorage().addVideoInfo(video.info);
}

VideoAd VideoLoader::videoToPlay() {
    loadNext();
    const QString file = m_ready.file.toLocalFile();
    if (!file.isEmpty() && !QFileInfo::exists(file)) {
        LOG(QStringLiteral("the video that was ready is gone from the caches folder: %1")
                .arg(file));
        m_ready = {};
    }
    return m_ready;
}

} // namespace velmora
