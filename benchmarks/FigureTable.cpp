// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/FigureTable.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QStringList>

#include <algorithm>
#include <cmath>

namespace velmora::bench {

namespace {

// Three significant digits, without an exponent.
QString number(double value) {
    const double size = std::abs(value);
    return QString::number(value, 'f',
                           size >= 100 || size == 0 ? 0
                           : size >= 10             ? 1
                           : size >= 0.1            ? 2
                                                    : 4);
}

QString medianAndSpread(const std::vector<double> &values) {
    if (values.empty())
        return {};
    const QString median = number(MeasuredFigure::median(values));
    if (values.size() == 1)
        return median;
    const auto [least, most] = std::ranges::minmax(values);
    return QStringLiteral("%1 (%2 to %3)").arg(median, number(least), number(most));
}

QString comparisonNumber(const Figure &figure, double value) {
    const bool isAddition = figure.kind == QLatin1String("difference") && value >= 0;
    return isAddition ? u'+' + number(value) : number(value);
}

} // namespace

bool FigureTable::hasRow(const QString &row) const {
    return std::ranges::any_of(
        m_figures, [&row](const MeasuredFigure &measured) { return measured.figure.row == row; });
}

QStringList FigureTable::cellsOf(const MeasuredFigure &measured) {
    const Figure &figure = measured.figure;
    const QString name =
        figure.unit.isEmpty() ? figure.figure : figure.figure + QStringLiteral(", ") + figure.unit;
    const QString goal = comparisonNumber(figure, figure.goal);
    if (!measured.missing.isEmpty())
        return {name, measured.missing, {}, {}, goal, QStringLiteral("missing")};
    return {name,
            medianAndSpread(measured.values),
            medianAndSpread(measured.reference),
            comparisonNumber(figure, measured.result()),
            goal,
            (measured.isCloseToGoal() ? QStringLiteral("just ") : QString()) +
                (measured.isMet() ? QStringLiteral("met") : QStringLiteral("MISSED"))};
}

QString FigureTable::toText() const {
    const QStringList header{QString(),
                             QStringLiteral("ours"),
                             QStringLiteral("reference"),
                             QStringLiteral("result"),
                             QStringLiteral("goal"),
                             QString()};
    QList<QStringList> lines{header};
    for (const MeasuredFigure &measured : m_figures)
        lines.append(cellsOf(measured));
    QList<qsizetype> widths(header.size(), 0);
    for (const QStringList &line : std::as_const(lines)) {
        // The reason for a missing figure may be longer than the column.
        const qsizetype count = line.last() == QLatin1String("missing") ? 1 : line.size();
        for (qsizetype i = 0; i < count; ++i)
            widths[i] = std::max(widths[i], line[i].size());
    }
    const auto formatted = [&widths](const QStringList &line) {
        QString text;
        for (qsizetype i = 0; i < line.size(); ++i)
            text += QStringLiteral("  ") + line[i].leftJustified(int(widths[i]));
        while (text.endsWith(u' '))
            text.chop(1);
        return text + u'\n';
    };

    QString text = formatted(lines.first());
    QString heading;
    for (size_t i = 0; i < m_figures.size(); ++i) {
        const Figure &figure = m_figures[i].figure;
        const QString own = figure.against.isEmpty()
                                ? figure.row
                                : figure.row + QStringLiteral(", against ") + figure.against;
        if (own != heading)
            text += u'\n' + own + u'\n';
        heading = own;
        text += formatted(lines[qsizetype(i) + 1]);
    }
    return text;
}

QString FigureTable::toMarkdown() const {
    QString text = QStringLiteral("| Row | Figure | Ours | Reference | Result | Goal | |\n"
                                  "| --- | --- | --- | --- | --- | --- | --- |\n");
    for (const MeasuredFigure &measured : m_figures)
        text += QStringLiteral("| %1 | %2 |\n")
                    .arg(measured.figure.row, cellsOf(measured).join(QStringLiteral(" | ")));
    return text;
}

QByteArray FigureTable::toJson() const {
    QJsonArray figures;
    for (const MeasuredFigure &measured : m_figures)
        figures.append(measured.toJson());
    return QJsonDocument(figures).toJson();
}

} // namespace velmora::bench
