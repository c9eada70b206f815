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
    constexpr qint64 Exact = qint64(1) << 52; // up to which both ways give the same
    if (std::abs(a) < Exact && std::abs(b) < Exact)
        return a + b;
    return static_cast<qint64>(std::clamp(double(a) + double(b), -Limit, Limit));
}

// Calls back with each weight that takes part, until the callback returns true.
template<class Callback>
void forEach(const WeightedSelection::Weights &weights, const std::vector<size_t> &leftOut,
             const Callback &callback) {
    auto next = leftOut.begin();
    for (size_t i = 0; i < weights.size(); ++i) {
        if (next != leftOut.end() && *next == i)
            ++next;
        else if (weights[i] && callback(*weights[i]))
            return;
    }
}

} // namespace

std::optional<WeightedSelection::Weight> WeightedSelection::weight(const QJsonValue &value) {
    if (value.isUndefined() || value.isNull())
        return {};
    double number = value.isBool() ? double(value.toBool()) : value.toDouble();
    if (value.isString())
        number = value.toString().trimmed().toDouble();
    if (!std::isfinite(number))
        number = 0;
    return Weight{number, rounded(number)};
}

std::optional<size_t> WeightedSelection::draw(const Weights &weights,
                                              const std::vector<size_t> &leftOut) {
    double total = 0;
    forEach(weights, leftOut, [&total](const Weight &weight) {
        total += weight.value;
        return false;
    });
    const qint64 all = rounded(total);
    if (all <= 0)
        return {};
    const qint64 drawn = qint64(RandomSource::current().next()) % all;
    // Weights are matched to candidates by position, on purpose: after a candidate without a weight
    // every later weight counts for the candidate before its own.
    size_t candidate = 0;
    qint64 lower = 0;
    bool isFound = false;
    forEach(weights, leftOut, [&](const Weight &weight) {
        const qint64 upper = sum(lower, weight.rounded);
        isFound = lower <= drawn && drawn < upper;
        lower = upper;
        candidate += isFound ? 0 : 1;
        return isFound;
    });
    if (!isFound)
        return {};
    for (const size_t earlier : leftOut)
        candidate += earlier <= candidate ? 1 : 0;
    return candidate;
}

} // namespace velmora
