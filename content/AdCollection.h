// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QString>

namespace velmora {

/// An ad table that grows: the ads of each placement, each once and in the order in which they were
/// added, and all other top-level values. Adding takes the same time however many there are.
class AdCollection {
public:
    /// Adds an ad to a placement.
    /// @return false when the placement has an equal one already
    bool add(const QString &placementKey, const QJsonObject &ad);

    /// Adds the ads of another table that are not here yet. Its other top-level values take the
    /// place of those here.
    void merge(const QJsonObject &table);

    QJsonArray ads(const QString &placementKey) const { return m_placements[placementKey].ads; }
    QJsonObject toJson() const;

private:
    struct Placement {
        QJsonArray ads;
        QSet<QJsonObject> known;
    };

    QMap<QString, Placement> m_placements;
    QJsonObject m_others;
};

} // namespace velmora
