// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdPool.h"

#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// The usable ads of an ad table, screened and ready to be drawn. A value: may be made on one
/// thread and used on another.
class DrawableAds {
public:
    DrawableAds();
    /// Screens a table, on any thread once the main thread has used Deployment::current(). The log
    /// tells which ads were refused and why.
    explicit DrawableAds(const QJsonObject &table);

    void add(const QString &placementKey, const QJsonObject &ad);
    /// An ad is not to be drawn any more.
    void remove(const QJsonObject &ad);

    /// Draws one ad of a placement by weight.
    /// @param excluded an ad that is drawn only when the placement has no other; may be empty
    std::optional<QJsonObject> draw(const QString &placementKey, const QJsonObject &excluded) const;

private:
    QMap<QString, AdPool> m_pools;
};

} // namespace velmora
