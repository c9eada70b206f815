// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Figure.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <cstdio>

namespace velmora::bench {

namespace {

QJsonArray toJson(const std::vector<double> &values) {
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

QJsonObject lineOf(const Figure &figure) {
    return {{QStringLiteral("row"), figure.row},         {QStringLiteral("figure"), figure.figure},
            {QStringLiteral("against"), figure.against}, {QStringLiteral("unit"), figure.unit},
            {QStringLiteral("kind"), figure.kind},       {QStringLiteral("goal"), figure.goal}};
}

void printLine(const QJsonObject &line) {
    std::printf("%s\n", QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

} // namespace

void Figure::print(const std::vector<double> &values, const std::vector<double> &reference) const {
    QJsonObject line = lineOf(*this);
    line.insert(QStringLiteral("values"), toJson(values));
    if (!reference.empty())
        line.insert(QStringLiteral("reference"), toJson(reference));
    printLine(line);
}

void Figure::printMissing(const QString &why) const {
    QJsonObject line = lineOf(*this);
    line.insert(QStringLiteral("missing"), why);
    printLine(line);
}

} // namespace velmora::bench
