// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/FigureTable.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// A program that measures some rows of the table and prints a line of JSON for each figure.
struct BenchProgram {
    /// Under which name it is asked for, as for each of its rows.
    QString name;
    /// The file's path below the folder of the table's own program.
    QString file;
    QStringList rows;
    /// Whether each row is measured by a run of its own, so that a failure is that of one row.
    bool runsRowsAlone = false;

    static QList<BenchProgram> all();

    /// Runs the program and adds its figures to the table.
    /// @param row       the only row to measure; empty for all
    /// @param arguments passed on to the program
    /// @return false when the program has failed or has left out a row, which the table then says
    bool run(FigureTable &table, const QString &row, const QStringList &arguments) const;

private:
    QStringList rowsToMeasure(const QString &row) const;
};

} // namespace velmora::bench
