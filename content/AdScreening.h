// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

namespace velmora {

/// Decides which elements of a placement count as ads. An element with a shape that the
/// framework cannot use, or with a hostile path or link, behaves as if it were not there; a
/// field that is merely absent, null or, for a link, blank does not disqualify an ad.
class AdScreening {
public:
    /// The placement's usable ads, in order, each the very object of the table. Every refused
    /// element is logged with the reason.
    static QJsonArray usableAds(const QJsonValue &placement, const QString &placementKey);

    /// Why an element is not an ad; empty when it is one.
    static QString refusal(const QJsonValue &element, const QString &placementKey);
};

} // namespace velmora
