// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/Figure.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>

#include <optional>
#include <vector>

namespace velmora::bench {

/// A figure with its measurements, as read from what a benchmark program has printed.
struct MeasuredFigure {
    Figure figure;
    std::vector<double> values;
    std::vector<double> reference;
    /// Why there are no measurements; empty when there are.
    QString missing;

    /// Nothing, if the line is not a figure: not JSON, without a row, of an unknown kind, or with
    /// neither measurements nor a reason for their absence.
    static std::optional<MeasuredFigure> fromLine(const QByteArray &line);

    static double median(std::vector<double> values);

    /// What is compared with the goal: a median, the largest value, the ratio of two medians or
    /// their difference.
    double result() const;
    bool isMet() const { return missing.isEmpty() && result() <= figure.goal; }
    /// Whether the result is within a tenth of the goal, so that another run may come to the other
    /// verdict. Never for a goal of 0.
    bool isCloseToGoal() const;

    QJsonObject toJson() const;
};

} // namespace velmora::bench
