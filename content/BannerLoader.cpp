// SPDX-License-Identifier: Apache-2.0
#include "BannerLoader.h"

#include "AdKeys.h"
#include "AdTable.h"
#include "MediaAddress.h"
#include "StoreLink.h"

#include <Velmora/Support.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace velmora {

namespace {
constexpr std::chrono::seconds Patience{15};
} // namespace

void BannerLoader::loadNext(const BannerCompletion &completion) {
    m_table->whenReady([weak = weak_from_this(), completion](const DrawableAds &ads) {
        if (const auto self = weak.lock())
            self->drawAndLoad(ads, completion);
    });
}

void BannerLoader::drawAndLoad(const DrawableAds &ads, const BannerCompletion &completion) {
    const auto now = TimeSource::current().now();
    if (!m_loads.empty() && now - m_loads.back().since < Patience) {
        LOG(QStringLiteral("a banner is loading already and serves this call too"));
        m_loads.back().completions.push_back(completion);
        return;
    }
    const auto drawn = ads.draw(kMainBannerKey, m_drawnAd);
    if (!drawn) {
        LOG(QStringLiteral("there is no banner to draw"));
        if (completion)
            completion(m_ready, false);
        return;
    }
    m_drawnAd = *drawn;
    const auto running = std::ranges::find(m_loads, *drawn, &Load::ad);
    if (running != m_loads.end()) {
        running->completions.push_back(completion);
        return;
    }
    m_loads.push_back({*drawn, now, {completion}});
    MediaCache::provide(MediaAddress::ofAd(*drawn, kBannerImgURL).remote, MediaKind::Picture,
                        [weak = weak_from_this(), ad = *drawn](const MediaCache::Result &picture) {
                            if (const auto self = weak.lock())
                                self->pictureLoaded(ad, picture);
                        });
}

void BannerLoader::pictureLoaded(const QJsonObject &ad, const MediaCache::Result &picture) {
    const bool hasFailed = picture.file.isEmpty();
    if (!hasFailed) {
        m_ready = {picture.file, StoreLink::bannerLink(ad.value(kBannerURL).toString()),
                   ad.value(kBannerName).toString()};
        m_table->cacheStorage().addBannerInfo(ad);
    } else if (picture.isHopeless) {
        m_table->rest(ad);
    }
    // A completion may call loadNext(), which changes both members.
    const auto load = std::ranges::find(m_loads, ad, &Load::ad);
    const auto completions = std::move(load->completions);
    m_loads.erase(load);
    const BannerAd ready = m_ready;
    for (const BannerCompletion &completion : completions) {
        if (completion)
            completion(ready, hasFailed);
    }
}

} // namespace velmora
