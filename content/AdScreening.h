// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonValue>
#include <QtCore/QString>

namespace velmora {

/// Decides which elements of a placement count as ads. An element is refused when it is not an
/// object, when a field has a type that cannot be used, or when a path or link is unsafe. A field
/// that is absent or null, or a blank link, is accepted.
class AdScreening {
public:
    /// Why an element is refused; empty when it is usable.
    /// @param placementKey kMainBannerKey or kMainVideoKey
    static QString refusal(const QJsonValue &element, const QString &placementKey);
};

} // namespace velmora
