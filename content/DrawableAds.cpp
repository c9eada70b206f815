// SPDX-License-Identifier: Apache-2.0
#include "DrawableAds.h"

#include "AdKeys.h"

namespace velmora {

DrawableAds::DrawableAds() {
    for (const QString &key : {kMainBannerKey, kMainVideoKey})
        m_pools.insert(key, AdPool(key));
}

DrawableAds::DrawableAds(const QJsonObject &table) : DrawableAds() {
    for (auto it = m_pools.begin(); it != m_pools.end(); ++it)
        it->addPlacement(table.value(it.key()));
}

void DrawableAds::add(const QString &placementKey, const QJsonObject &ad) {
    if (const auto pool = m_pools.find(placementKey); pool != m_pools.end())
        pool->add(ad, pool->size());
}

void DrawableAds::remove(const QJsonObject &ad) {
    for (AdPool &pool : m_pools)
        pool.remove(ad);
}

std::optional<QJsonObject> DrawableAds::draw(const QString &placementKey,
                                             const QJsonObject &excluded) const {
    const auto pool = m_pools.find(placementKey);
    return pool == m_pools.end() ? std::nullopt : pool->draw(excluded);
}

} // namespace velmora
