// SPDX-License-Identifier: Apache-2.0
// Measures the download of a large film over TLS, and that of a plain network manager.

#include "benchmarks/BenchOptions.h"
#include "benchmarks/BenchServer.h"
#include "benchmarks/Figure.h"
#include "benchmarks/download/DownloadSubject.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace velmora::bench;

namespace {

constexpr int LargeMegabytes = 200;
constexpr int SmokeMegabytes = 2;
constexpr qsizetype Megabyte = 1'000'000;
// The framework's network thread ends five seconds after the last request.
constexpr int SettleMs = 6000;
constexpr int SmokeSettleMs = 100;
// Memory varies less than time, and takes longer to measure.
constexpr size_t MemoryRounds = 3;

enum Value { LeftBySmall, Seconds, CpuSeconds, Peak, Left, ValueCount };
using Measurement = std::array<double, ValueCount>;

QByteArray film(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator random(1);
    random.fillRange(reinterpret_cast<quint32 *>(bytes.data()), size / qsizetype(sizeof(quint32)));
    return bytes.replace(0, 12,
                         QByteArray("\0\0\0\x18"
                                    "ftypisom",
                                    12));
}

Measurement measure(const BenchServer &bench, const QString &subject, int settleMs) {
    QDir(bench.cachesFolder()).removeRecursively();
    QProcess child;
    child.setProcessEnvironment(bench.environment());
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--subject"), subject, QStringLiteral("--settle"),
                 QString::number(settleMs)});
    if (!child.waitForFinished(300'000) || child.exitCode() != 0)
        qFatal("the download of %s failed", qPrintable(subject));
    const QList<QByteArray> words = child.readAllStandardOutput().simplified().split(' ');
    Measurement measurement{};
    for (size_t i = 0; i < measurement.size(); ++i)
        measurement[i] = words.value(qsizetype(i)).toDouble();
    std::fprintf(stderr, "%s: %.2f s, %.2f s of CPU\n", qPrintable(subject), measurement[Seconds],
                 measurement[CpuSeconds]);
    return measurement;
}

void print(Value value, const QString &name, const QString &unit, const QString &kind, double goal,
           const std::vector<Measurement> &ours, const std::vector<Measurement> &reference) {
    const auto column = [value](const std::vector<Measurement> &measurements) {
        std::vector<double> values;
        for (const Measurement &measurement : measurements)
            values.push_back(measurement[value]);
        return values;
    };
    Figure{QStringLiteral("download"),
           name,
           QStringLiteral("a network manager, synced"),
           unit,
           kind,
           goal}
        .print(column(ours), column(reference));
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora Benchmarks"));
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    QCommandLineOption subject(QStringLiteral("subject"), {}, QStringLiteral("name"));
    QCommandLineOption settle(QStringLiteral("settle"), {}, QStringLiteral("ms"));
    subject.setFlags(QCommandLineOption::HiddenFromHelp);
    settle.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({subject, settle});
    const BenchOptions options = BenchOptions::parse(parser, application);
    if (parser.isSet(subject)) {
        DownloadSubject download(parser.value(subject) == QLatin1String("plain"),
                                 parser.value(settle).toInt());
        download.run();
        return QCoreApplication::exec();
    }

    const int megabytes = options.isSmoke ? SmokeMegabytes : LargeMegabytes;
    const int settleMs = options.millisecondsOr(SettleMs, SmokeSettleMs);
    BenchServer bench;
    bench.server().campaign().setMedia(QLatin1String(DownloadSubject::SmallFilm), film(Megabyte));
    bench.server().campaign().setMedia(QLatin1String(DownloadSubject::LargeFilm),
                                       film(megabytes * Megabyte));
    std::vector<Measurement> ours;
    std::vector<Measurement> plain;
    const auto count = size_t(options.roundsOr(9));
    while (ours.size() < count) {
        const int pauseMs = ours.size() < MemoryRounds ? settleMs : 0;
        ours.push_back(measure(bench, QStringLiteral("framework"), pauseMs));
        plain.push_back(measure(bench, QStringLiteral("plain"), pauseMs));
    }
    const QString size = QStringLiteral("%1 MB").arg(megabytes);
    const QString ratio = QStringLiteral("ratio");
    const QString absolute = QStringLiteral("absolute");
    print(CpuSeconds, size + QStringLiteral(", CPU"), QStringLiteral("s"), ratio, 0.9, ours, plain);
    print(Seconds, size + QStringLiteral(", time"), QStringLiteral("s"), ratio, 0.9, ours, plain);
    ours.resize(std::min(count, MemoryRounds));
    plain.resize(ours.size());
    print(Peak, size + QStringLiteral(", memory meanwhile"), QStringLiteral("MB"), absolute, 2,
          ours, plain);
    print(Left, size + QStringLiteral(", memory afterwards"), QStringLiteral("MB"), absolute, 0.5,
          ours, plain);
    print(LeftBySmall, QStringLiteral("first download, memory afterwards"), QStringLiteral("MB"),
          absolute, 1, ours, plain);
    return 0;
}
