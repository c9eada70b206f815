// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/MeasuredFigure.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QStringList>

#include <algorithm>
#include <cmath>

namespace velmora::bench {

namespace {

std::vector<double> numbers(const QJsonValue &array) {
    std::vector<double> values;
    for (const QJsonValue &value : array.toArray())
        values.push_back(value.toDouble());
    return values;
}

QJsonArray array(const std::vector<double> &values) {
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

bool isComparison(const QString &kind) {
    return kind == QLatin1String("ratio") || kind == QLatin1String("difference");
}

bool isWorst(const QString &kind) {
    return kind == QLatin1String("max") || kind == QLatin1String("exact");
}

} // namespace

std::optional<MeasuredFigure> MeasuredFigure::fromLine(const QByteArray &line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    MeasuredFigure measured{
        {object[QLatin1String("row")].toString(), object[QLatin1String("figure")].toString(),
         object[QLatin1String("against")].toString(), object[QLatin1String("unit")].toString(),
         object[QLatin1String("kind")].toString(), object[QLatin1String("goal")].toDouble()},
        numbers(object[QLatin1String("values")]),
        numbers(object[QLatin1String("reference")]),
        object[QLatin1String("missing")].toString()};
    const QString &kind = measured.figure.kind;
    const bool isKnown = isComparison(kind) || isWorst(kind) || kind == QLatin1String("absolute");
    const bool isMeasured =
        !measured.values.empty() && (!isComparison(kind) || !measured.reference.empty());
    if (measured.figure.row.isEmpty() || !isKnown || isMeasured == !measured.missing.isEmpty())
        return {};
    return measured;
}

double MeasuredFigure::median(std::vector<double> values) {
    std::ranges::sort(values);
    const size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double MeasuredFigure::result() const {
    if (isWorst(figure.kind))
        return *std::ranges::max_element(values);
    if (!isComparison(figure.kind))
        return median(values);
    return figure.kind == QLatin1String("ratio") ? median(values) / median(reference)
                                                 : median(values) - median(reference);
}

bool MeasuredFigure::isCloseToGoal() const {
    return missing.isEmpty() && figure.goal > 0 &&
           std::abs(result() - figure.goal) <= figure.goal / 10;
}

QJsonObject MeasuredFigure::toJson() const {
    QJsonObject object{
        {QStringLiteral("row"), figure.row},         {QStringLiteral("figure"), figure.figure},
        {QStringLiteral("against"), figure.against}, {QStringLiteral("unit"), figure.unit},
        {QStringLiteral("kind"), figure.kind},       {QStringLiteral("goal"), figure.goal}};
    if (!missing.isEmpty()) {
        object.insert(QStringLiteral("missing"), missing);
        return object;
    }
    object.insert(QStringLiteral("values"), array(values));
    if (!reference.empty())
        object.insert(QStringLiteral("reference"), array(reference));
    object.insert(QStringLiteral("result"), result());
    object.insert(QStringLiteral("met"), isMet());
    object.insert(QStringLiteral("close"), isCloseToGoal());
    return object;
}

} // namespace velmora::bench
