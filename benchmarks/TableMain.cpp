// SPDX-License-Identifier: Apache-2.0
// Runs the benchmark programs and prints their figures, with the goals, as one table.

#include "benchmarks/BenchProgram.h"
#include "benchmarks/FigureTable.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <cstdio>

using velmora::bench::BenchProgram;
using velmora::bench::FigureTable;

namespace {

void printNames() {
    for (const BenchProgram &program : BenchProgram::all())
        std::printf("%-8s %s\n", qPrintable(program.name),
                    qPrintable(program.rows.join(QStringLiteral(", "))));
}

/// What a name on the command line asks for: a program with all its rows, or with one.
struct Request {
    BenchProgram program;
    QString row;
};

/// Empty if the name is unknown.
QList<Request> requests(const QString &name) {
    QList<Request> requests;
    for (const BenchProgram &program : BenchProgram::all()) {
        const bool isWhole = name.isEmpty() || name == program.name;
        if (isWhole && !program.runsRowsAlone)
            requests.append({program, {}});
        for (const QString &row : program.rows) {
            if (name == row || (isWhole && program.runsRowsAlone))
                requests.append({program, row});
        }
    }
    return requests;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("name"),
                                 QStringLiteral("A program or a row of it, see --list."),
                                 QStringLiteral("[NAME...]"));
    const QCommandLineOption list(QStringLiteral("list"),
                                  QStringLiteral("Print the programs with their rows, and end."));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Also write all measurements to this file."),
                                  QStringLiteral("file"));
    const QCommandLineOption markdown(QStringLiteral("markdown"),
                                      QStringLiteral("Print the table as Markdown."));
    const QCommandLineOption rounds(QStringLiteral("rounds"),
                                    QStringLiteral("Measurements of each figure."),
                                    QStringLiteral("n"));
    const QCommandLineOption smoke(
        QStringLiteral("smoke"),
        QStringLiteral("One short measurement of each figure, to see whether all of them work."));
    parser.addOptions({list, json, markdown, rounds, smoke});
    parser.process(application);
    if (parser.isSet(list)) {
        printNames();
        return 0;
    }

    QList<Request> wanted;
    const QStringList names = parser.positionalArguments();
    for (const QString &name : names.isEmpty() ? QStringList{QString()} : names) {
        const QList<Request> found = requests(name);
        if (found.isEmpty()) {
            std::fprintf(stderr, "bench: no row has the name %s (see --list)\n", qPrintable(name));
            return 2;
        }
        wanted += found;
    }

    QStringList arguments;
    if (parser.isSet(rounds))
        arguments += {QStringLiteral("--rounds"), parser.value(rounds)};
    if (parser.isSet(smoke))
        arguments += QStringLiteral("--smoke");
    FigureTable table;
    bool isComplete = true;
    for (const Request &request : std::as_const(wanted))
        isComplete &= request.program.run(table, request.row, arguments);

    std::printf("%s", qPrintable(parser.isSet(markdown) ? table.toMarkdown() : table.toText()));
    if (parser.isSet(json)) {
        QFile file(parser.value(json));
        if (!file.open(QIODevice::WriteOnly) || file.write(table.toJson()) < 0) {
            std::fprintf(stderr, "bench: %s cannot be written\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    return isComplete ? 0 : 1;
}
