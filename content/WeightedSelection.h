// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonValue>

#include <optional>
#include <vector>

namespace velmora {

/// Draws one of several candidates at random; the probability of each is proportional to its
/// weight.
class WeightedSelection {
public:
    struct Weight {
        double value;
        qint64 rounded;
    };
    /// The weight of each candidate, in order; nothing for a candidate without one.
    using Weights = std::vector<std::optional<Weight>>;

    /// @param leftOut the indices of the candidates that do not take part, in ascending order
    /// @return the index of the drawn candidate. Nothing when none has a weight, when the total is
    ///         0 or less, or when rounded weights leave the drawn number past the last interval
    static std::optional<size_t> draw(const Weights &weights, const std::vector<size_t> &leftOut);

    /// The weight in an ad's field, as a finite number: numeric text counts as its number, true as
    /// 1, anything else as 0. Nothing when the field is absent or null.
    static std::optional<Weight> weight(const QJsonValue &value);
};

} // namespace velmora
