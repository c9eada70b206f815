// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "WeightedSelection.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>
#include <vector>

namespace velmora {

/// The ads of one placement that may be drawn. Each is screened (AdScreening) and its weight read
/// once, when it is added, so that a draw takes microseconds from tables of any size. A value: may
/// be made on one thread and used on another.
class AdPool {
public:
    /// @param placementKey kMainBannerKey or kMainVideoKey
    explicit AdPool(QString placementKey) : m_placementKey(std::move(placementKey)) {}

    /// Adds the usable elements of a placement. The log tells which were refused and why.
    /// @param placement the ad table's value for the placement, of any type
    void addPlacement(const QJsonValue &placement);
    /// Adds one element of the placement, if it is usable.
    /// @param index its position in the placement, for the log
    void add(const QJsonValue &element, qsizetype index);
    /// Takes an ad, and every equal one, out.
    void remove(const QJsonObject &ad);

    /// Draws one ad by weight.
    /// @param excluded an ad that is drawn only when there is no other; may be empty
    std::optional<QJsonObject> draw(const QJsonObject &excluded = {}) const;

    qsizetype size() const { return qsizetype(m_ads.size()); }

private:
    struct Ad {
        QJsonObject object;
        size_t hash;
    };

    /// The positions of an ad and of every equal one.
    std::vector<size_t> positionsOf(const QJsonObject &ad) const;

    QString m_placementKey;
    std::vector<Ad> m_ads;
    WeightedSelection::Weights m_weights; // of m_ads, by position
};

} // namespace velmora
