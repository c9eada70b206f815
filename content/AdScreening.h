// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

namespace velmora {

/// Decides which elements of a placement count as ads. An element is dropped when it is not an
/// object, when a field has a type that cannot be used, or when a path or link is unsafe. A field
/// that is absent or null, or a blank link, is accepted.
class AdScreening {
public:
    /// The usable ads of a placement, unchanged and in order. Every dropped element is logged with
    /// the reason.
    /// @param placement    the ad table's value for the placement, of any type
    /// @param placementKey kMainBannerKey or kMainVideoKey
    static QJsonArray usableAds(const QJsonValue &placement, const QString &placementKey);
};

} // namespace velmora
