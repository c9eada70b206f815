// SPDX-License-Identifier: Apache-2.0
#include "WeightedSelection.h"

#include "RandomSource.h"

#include <QtCore/QString>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

// Rounds half away from zero. The limit keeps the cast defined for absurdly large weights.
qint64 rounded(double value) {
    constexpr double Limit = 1e15;
    return static_cast<qint64>(std::round(std::clamp(value, -Limit, Limit)));
}

// Adds in double precision and truncates. The limit keeps the cast defined.
qint64 sum(qint64 a, qint64 b) {
    constexpr double Limit = 9e18;
    return static_cast<qint64>(std::clamp(double(a) + double(b), -Limit, Limit));
}

} // namespace

std::optional<double> WeightedSelection::weight(const QJsonValue &value) {
    if (value.isUndefined() || value.isNull())
        return {};
    double number = value.isBool() ? double(value.toBool()) : value.toDouble();
    if (value.isString())
        number = value.toString().trimmed().toDouble();
    return std::isfinite(number) ? number : 0;
}

std::optional<size_t> WeightedSelection::draw(const Weights &weights) {
    double total = 0;
    for (const auto &weight : weights)
        total += weight.value_or(0);
    const qint64 all = rounded(total);
    if (all <= 0)
        return {};
    const qint64 drawn = qint64(RandomSource::current().next()) % all;
    // Weights are matched to candidates by position, on purpose: after a candidate without a weight
    // every later weight counts for the candidate before its own.
    size_t candidate = 0;
    qint64 lower = 0;
    for (const auto &weight : weights) {
        if (!weight)
            continue;
        const qint64 upper = sum(lower, rounded(*weight));
        if (lower <= drawn && drawn < upper)
            return candidate;
        lower = upper;
        ++candidate;
    }
    return {};
}

} // namespace velmora
