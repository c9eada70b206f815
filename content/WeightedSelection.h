// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// Draws one ad at random; the probability of each is proportional to its weight.
class WeightedSelection {
public:
    /// @param candidates the ads, in table order
    /// @param excluded   removed from the candidates when there are several; may be empty
    /// @param weightKey  the field that holds an ad's weight
    /// @return the drawn ad. Nothing when no ad has a weight, when the total is 0 or less, or when
    ///         rounded weights leave the drawn number past the last interval
    static std::optional<QJsonObject> draw(QJsonArray candidates, const QJsonObject &excluded,
                                           const QString &weightKey);

    /// The weight as a number: numeric text counts as its number, true as 1, anything else as 0.
    static double weight(const QJsonValue &value);
};

} // namespace velmora
