// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "benchmarks/MeasuredFigure.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace velmora::bench {

/// The figures of a run, in the forms in which they are printed and stored.
class FigureTable {
public:
    void add(const MeasuredFigure &figure) { m_figures.push_back(figure); }
    bool hasRow(const QString &row) const;
    bool isEmpty() const { return m_figures.empty(); }

    /// For a terminal.
    QString toText() const;
    QString toMarkdown() const;
    QByteArray toJson() const;

private:
    /// One line of either table: figure, ours, reference, result, goal, verdict.
    static QStringList cellsOf(const MeasuredFigure &measured);

    std::vector<MeasuredFigure> m_figures;
};

} // namespace velmora::bench
