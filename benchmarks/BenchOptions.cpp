// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/BenchOptions.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

namespace velmora::bench {

BenchOptions BenchOptions::parse(const QCoreApplication &application) {
    QCommandLineParser parser;
    return parse(parser, application);
}

BenchOptions BenchOptions::parse(QCommandLineParser &parser, const QCoreApplication &application) {
    const QCommandLineOption only(QStringLiteral("only"), QStringLiteral("the row to measure"),
                                  QStringLiteral("row"));
    const QCommandLineOption rounds(QStringLiteral("rounds"),
                                    QStringLiteral("measurements of each figure"),
                                    QStringLiteral("n"));
    const QCommandLineOption smoke(QStringLiteral("smoke"),
                                   QStringLiteral("one short measurement of each figure"));
    parser.addHelpOption();
    parser.addOptions({only, rounds, smoke});
    parser.process(application);
    return {parser.value(rounds).toInt(), parser.isSet(smoke), parser.value(only)};
}

} // namespace velmora::bench
