// SPDX-License-Identifier: Apache-2.0
#include "AdCollection.h"

namespace velmora {

bool AdCollection::add(const QString &placementKey, const QJsonObject &ad) {
    Placement &placement = m_placements[placementKey];
    if (placement.known.contains(ad))
        return false;
    placement.known.insert(ad);
    placement.ads.append(ad);
    return true;
}

void AdCollection::merge(const QJsonObject &table) {
    for (auto it = table.begin(); it != table.end(); ++it) {
        if (!it->isArray()) {
            m_others.insert(it.key(), it.value());
            continue;
        }
        const QJsonArray elements = it->toArray();
        for (const QJsonValue &element : elements) {
            if (element.isObject())
                add(it.key(), element.toObject());
        }
    }
}

QJsonObject AdCollection::toJson() const {
    QJsonObject table = m_others;
    for (auto it = m_placements.begin(); it != m_placements.end(); ++it)
        table.insert(it.key(), it->ads);
    return table;
}

} // namespace velmora
