// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/BenchProgram.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

#include <cstdio>

namespace velmora::bench {

namespace {

/// Stands for a row that was not measured.
MeasuredFigure missingRow(const QString &row, const QString &why) {
    Figure figure{row, QStringLiteral("all figures"), {}, {}, QStringLiteral("absolute"), 0};
    return {figure, {}, {}, why};
}

} // namespace

QList<BenchProgram> BenchProgram::all() {
    return {
        {QStringLiteral("host"),
         QStringLiteral("velmora-host-bench"),
         {QStringLiteral("start-up"), QStringLiteral("calls"), QStringLiteral("first-pixel"),
          QStringLiteral("start-phase"), QStringLiteral("slices"), QStringLiteral("banners"),
          QStringLiteral("web-view"), QStringLiteral("idle"), QStringLiteral("size")},
         true},
        {QStringLiteral("video"),
         QStringLiteral("velmora-video-bench"),
         {QStringLiteral("film"), QStringLiteral("first-picture")}},
        {QStringLiteral("micro"),
         QStringLiteral("micro/velmora-micro-bench"),
         {QStringLiteral("draw"), QStringLiteral("table"), QStringLiteral("reply")},
         true}, // what comes late of a reply would be stored in the table of another row
        {QStringLiteral("network"),
         QStringLiteral("velmora-download-bench"),
         {QStringLiteral("download")}},
    };
}

QStringList BenchProgram::rowsToMeasure(const QString &row) const {
    return row.isEmpty() ? rows : QStringList{row};
}

bool BenchProgram::run(FigureTable &table, const QString &row, const QStringList &arguments) const {
    const QString path = QCoreApplication::applicationDirPath() + u'/' + file;
    QString failure;
    if (!QFileInfo(path).isExecutable()) {
        failure = QStringLiteral("%1 is not built").arg(file);
    } else {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(path, row.isEmpty() ? arguments
                                          : arguments + QStringList{QStringLiteral("--only"), row});
        while (program.waitForReadyRead(-1) || program.canReadLine()) {
            while (program.canReadLine()) {
                const QByteArray line = program.readLine();
                const auto figure = MeasuredFigure::fromLine(line);
                if (!figure)
                    std::fprintf(stderr, "%s printed no figure: %s", qPrintable(file),
                                 line.constData());
                else if (row.isEmpty() || figure->figure.row == row)
                    table.add(*figure);
            }
        }
        program.waitForFinished(-1);
        if (program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0)
            failure = QStringLiteral("%1 failed").arg(file);
    }
    if (failure.isEmpty())
        failure = QStringLiteral("%1 has not measured it").arg(file);
    else
        std::fprintf(stderr, "%s\n", qPrintable(failure));

    bool isComplete = true;
    for (const QString &wanted : rowsToMeasure(row)) {
        if (table.hasRow(wanted))
            continue;
        table.add(missingRow(wanted, failure));
        isComplete = false;
    }
    return isComplete;
}

} // namespace velmora::bench
