// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// Draws one ad at random, each ad's chance in proportion to its weight.
class WeightedSelection {
public:
    /// @param candidates ads in table order
    /// @param excluded   removed from the draw while another candidate exists; may be empty
    /// @param weightKey  the field that holds an ad's weight
    /// @return the drawn ad, or nothing when no weight is known, the total is 0 or less, or the
    ///         draw falls past the last interval
    static std::optional<QJsonObject> draw(QJsonArray candidates, const QJsonObject &excluded,
                                           const QString &weightKey);

    /// A weight's numeric value; numeric text counts by its number, other text as 0.
    static double weight(const QJsonValue &value);
};

} // namespace velmora
