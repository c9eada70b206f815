// SPDX-License-Identifier: Apache-2.0
#include "WeightedSelection.h"

#include "RandomSource.h"

#include <algorithm>
#include <cmath>
#include <vector>

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

void removeAll(QJsonArray &ads, const QJsonObject &ad) {
    for (qsizetype i = ads.size() - 1; i >= 0; --i) {
        if (ads.at(i) == QJsonValue(ad))
            ads.removeAt(i);
    }
}

} // namespace

double WeightedSelection::weight(const QJsonValue &value) {
    double number = value.isBool() ? double(value.toBool()) : value.toDouble();
    if (value.isString())
        number = value.toString().trimmed().toDouble();
    return std::isfinite(number) ? number : 0;
}

std::optional<QJsonObject> WeightedSelection::draw(QJsonArray candidates,
                                                   const QJsonObject &excluded,
                                                   const QString &weightKey) {
    if (candidates.size() > 1 && !excluded.isEmpty() && candidates.contains(excluded))
        removeAll(candidates, excluded);

    // Weights are matched to candidates by position, on purpose: after a candidate without a weight
    // every later weight counts for the candidate before its own.
    std::vector<double> weights;
    double total = 0;
    for (const QJsonValue &ad : std::as_const(candidates)) {
        const QJsonValue value = ad.toObject().value(weightKey);
        if (value.isUndefined() || value.isNull())
            continue;
        weights.push_back(weight(value));
        total += weights.back();
    }

    const qint64 all = rounded(total);
    if (weights.empty() || all <= 0)
        return {};
    const qint64 drawn = qint64(RandomSource::current().next()) % all;
    qint64 lower = 0;
    for (size_t i = 0; i < weights.size(); ++i) {
        const qint64 upper = sum(lower, rounded(weights[i]));
        if (lower <= drawn && drawn < upper)
            return candidates.at(qsizetype(i)).toObject();
        lower = upper;
    }
    return {};
}

} // namespace velmora
