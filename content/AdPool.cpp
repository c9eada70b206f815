// SPDX-License-Identifier: Apache-2.0
#include "AdPool.h"

#include "AdKeys.h"
#include "AdScreening.h"

#include <Velmora/Support.h>

#include <algorithm>

namespace velmora {

void AdPool::addPlacement(const QJsonValue &placement) {
    if (!placement.isArray()) {
        if (!placement.isUndefined())
            LOG(QStringLiteral("placement \"%1\" refused: it is not an array").arg(m_placementKey));
        return;
    }
    qsizetype index = 0;
    const QJsonArray elements = placement.toArray();
    for (const QJsonValue &element : elements)
        add(element, index++);
}

void AdPool::add(const QJsonValue &element, qsizetype index) {
    const QString reason = AdScreening::refusal(element, m_placementKey);
    if (!reason.isEmpty()) {
        LOG(QStringLiteral("ad %1 of \"%2\" refused: %3").arg(index).arg(m_placementKey, reason));
        return;
    }
    const QJsonObject ad = element.toObject();
    m_ads.push_back({ad, qHash(ad)});
    m_weights.push_back(WeightedSelection::weight(
        ad.value(m_placementKey == kMainVideoKey ? kVideoPriority : kBannerPriority)));
}

std::vector<size_t> AdPool::positionsOf(const QJsonObject &ad) const {
    std::vector<size_t> positions;
    if (ad.isEmpty())
        return positions;
    const size_t hash = qHash(ad);
    for (size_t i = 0; i < m_ads.size(); ++i) {
        if (m_ads[i].hash == hash && m_ads[i].object == ad)
            positions.push_back(i);
    }
    return positions;
}

void AdPool::remove(const QJsonObject &ad) {
    const std::vector<size_t> removed = positionsOf(ad);
    if (removed.empty())
        return;
    size_t kept = 0;
    for (size_t i = 0; i < m_ads.size(); ++i) {
        if (std::ranges::binary_search(removed, i))
            continue;
        m_ads[kept] = m_ads[i];
        m_weights[kept] = m_weights[i];
        ++kept;
    }
    m_ads.resize(kept);
    m_weights.resize(kept);
}

std::optional<QJsonObject> AdPool::draw(const QJsonObject &excluded) const {
    const std::vector<size_t> leftOut =
        m_ads.size() > 1 ? positionsOf(excluded) : std::vector<size_t>();
    const auto drawn = WeightedSelection::draw(m_weights, leftOut);
    return drawn ? std::optional(m_ads[*drawn].object) : std::nullopt;
}

} // namespace velmora
