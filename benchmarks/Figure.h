// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <vector>

namespace velmora::bench {

/// One figure of the table that ./bench prints. A benchmark program prints it as a line of JSON on
/// its standard output; lower is always better.
struct Figure {
    QString row;
    QString figure;
    /// What the figure is compared with.
    QString against;
    QString unit;
    /// How the values are judged: "absolute", "max", "exact", "ratio" or "difference".
    QString kind;
    double goal = 0;

    /// @param values    single measurements of ours
    /// @param reference those of what it is compared with, taken in turn with ours; may be empty
    void print(const std::vector<double> &values, const std::vector<double> &reference = {}) const;
    /// Prints instead why the figure cannot be measured on this machine.
    void printMissing(const QString &why) const;
};

} // namespace velmora::bench
