// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

class QCommandLineParser;
class QCoreApplication;

namespace velmora::bench {

/// The command line that all benchmark programs share: how much they measure.
struct BenchOptions {
    /// The number of measurements; 0 for the usual one.
    int rounds = 0;
    /// One measurement, as short as it can be.
    bool isSmoke = false;
    /// The only row to measure; empty for all.
    QString only;

    /// Reads the command line and ends the program if there is a fault in it.
    static BenchOptions parse(const QCoreApplication &application);
    /// @param parser has the options of that program alone
    static BenchOptions parse(QCommandLineParser &parser, const QCoreApplication &application);

    bool wants(const QString &row) const { return only.isEmpty() || only == row; }
    int roundsOr(int usual) const { return isSmoke ? 1 : rounds > 0 ? rounds : usual; }
    int millisecondsOr(int usual, int smoke) const { return isSmoke ? smoke : usual; }
};

} // namespace velmora::bench
