// SPDX-License-Identifier: Apache-2.0
#include "BannerLoader.h"

#include "AdKeys.h"
#include "AdTable.h"
#include "MediaAddress.h"
#include "MediaCache.h"
#include "StoreLink.h"

#include <Velmora/Support.h>

#include <utility>

namespace velmora {

void BannerLoader::loadNext(const BannerCompletion &completion) {
    if (!m_completions.empty()) {
        LOG(QStringLiteral("a banner is loading already and serves this call too"));
        m_completions.push_back(completion);
        return;
    }
    const auto drawn = m_table->draw(kMainBannerKey, m_drawnAd);
    if (!drawn) {
        LOG(QStringLiteral("there is no banner to draw"));
        if (completion)
            completion(m_ready, false);
        return;
    }
    m_drawnAd = *drawn;
    m_completions.push_back(completion);
    MediaCache::provide(MediaAddress::ofAd(*drawn, kBannerImgURL).remote,
                        [weak = weak_from_this(), ad = *drawn](const QUrl &file) {
                            if (const auto self = weak.lock())
                                self->pictureLoaded(ad, file);
                        });
}

void BannerLoader::pictureLoaded(const QJsonObject &ad, const QUrl &file) {
    if (!file.isEmpty()) {
        m_ready = {file, StoreLink::bannerLink(ad.value(kBannerURL).toString()),
                   ad.value(kBannerName).toString()};
        m_table->cacheStorage().addBannerInfo(ad);
    }
    // A completion may call loadNext(), which changes both members.
    const auto completions = std::exchange(m_completions, {});
    const BannerAd ready = m_ready;
    for (const BannerCompletion &completion : completions) {
        if (completion)
            completion(ready, file.isEmpty());
    }
}

} // namespace velmora
