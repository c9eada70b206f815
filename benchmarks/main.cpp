// SPDX-License-Identifier: Apache-2.0
// Compares the CPU time and memory of a banner with those of a QLabel that shows the same picture
// in the same size. Each runs in a process of its own.

#include "benchmarks/BannerSubject.h"
#include "benchmarks/BenchServer.h"
#include "benchmarks/ProcessFigures.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtGui/QImageReader>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include <unistd.h>

using velmora::bench::BannerSubject;
using velmora::bench::BenchServer;
using velmora::bench::ProcessFigures;

namespace {

// Long enough for the work at the start, and for idle connections to be closed.
constexpr int WarmUpMs = 8000;

struct Sample {
    double cpuPercent = 0;
    double privateMegabytes = 0;
};

void serveOneBanner(velmora::adserver::AdServer &server) {
    QFile picture(QStringLiteral(VELMORA_SAMPLE_BANNER));
    if (!picture.open(QIODevice::ReadOnly))
        qFatal("the sample banner is missing");
    server.campaign().setMedia(QStringLiteral("/banner.gif"), picture.readAll());
    const QJsonObject ad{
        {QStringLiteral("name"), QStringLiteral("sample")},
        {QStringLiteral("priority"), 1},
        {QStringLiteral("image_728x90"), QStringLiteral("/banner.gif")},
        {QStringLiteral("market_url"), QStringLiteral("https://apps.example/app/id1")}};
    server.campaign().setReply(
        QJsonDocument(QJsonObject{{QStringLiteral("standard"), QJsonArray{ad}},
                                  {QStringLiteral("video"), QJsonArray()}})
            .toJson());
}

// The duration of the sample banner's animation. A measurement covers complete runs of it;
// otherwise the result would depend on how much of a motionless part falls into the measurement.
int animationMs() {
    QImageReader reader(QStringLiteral(VELMORA_SAMPLE_BANNER));
    int length = 0;
    for (QImage frame = reader.read(); !frame.isNull(); frame = reader.read())
        length += reader.nextImageDelay();
    return length;
}

Sample measure(const QString &subject, const QProcessEnvironment &environment, int lengthMs) {
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--subject"), subject});
    while (child.waitForReadyRead(30'000) && !child.canReadLine()) {
    }
    if (!child.canReadLine())
        qFatal("%s did not start", qPrintable(subject));
    QThread::msleep(WarmUpMs);
    const ProcessFigures before = ProcessFigures::of(child.processId());
    QThread::msleep(static_cast<unsigned long>(lengthMs));
    const ProcessFigures after = ProcessFigures::of(child.processId());
    child.kill();
    child.waitForFinished();
    return {(after.cpuSeconds - before.cpuSeconds) / (lengthMs / 1000.0) * 100,
            after.privateMegabytes};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

} // namespace

int main(int argc, char **argv) {
    // The programs that are compared make a QApplication of their own.
    for (int i = 1; i + 1 < argc; ++i) {
        if (qstrcmp(argv[i], "--subject") == 0)
            return BannerSubject::run(QString::fromLocal8Bit(argv[i + 1]), argc, argv);
    }

    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption turnsOption(QStringLiteral("turns"),
                                         QStringLiteral("runs of the animation in one measurement"),
                                         QStringLiteral("n"), QStringLiteral("2"));
    const QCommandLineOption roundsOption(QStringLiteral("rounds"),
                                          QStringLiteral("measurements of each subject"),
                                          QStringLiteral("n"), QStringLiteral("3"));
    parser.addOptions({turnsOption, roundsOption});
    parser.process(application);

    BenchServer bench;
    serveOneBanner(bench.server());

    // The pages of a file that was just built count as private memory until they are on disk.
    sync();

    const int lengthMs = animationMs() * parser.value(turnsOption).toInt();

    // The subjects take turns, so that other load of the machine affects all of them alike.
    std::map<QString, std::vector<double>> cpu;
    std::map<QString, std::vector<double>> memory;
    for (int round = 0; round < parser.value(roundsOption).toInt(); ++round) {
        for (const QString &subject : BannerSubject::names()) {
            const Sample sample = measure(subject, bench.environment(), lengthMs);
            cpu[subject].push_back(sample.cpuPercent);
            memory[subject].push_back(sample.privateMegabytes);
        }
    }

    std::printf("%-14s %10s %14s %16s\n", "", "CPU, %", "private, MB", "above window, MB");
    const double window = median(memory[QStringLiteral("window")]);
    for (const QString &subject : BannerSubject::names())
        std::printf("%-14s %10.2f %14.2f %16.2f\n", qPrintable(subject), median(cpu[subject]),
                    median(memory[subject]), median(memory[subject]) - window);
    std::printf("\n");
    for (const char *peer : {"label-https", "label"}) {
        const auto ratio = [peer](std::map<QString, std::vector<double>> &figures) {
            return median(figures[QStringLiteral("banner")]) / median(figures[QLatin1String(peer)]);
        };
        std::printf("banner : %-12s  CPU %.2f, private memory %.2f\n", peer, ratio(cpu),
                    ratio(memory));
    }
    return 0;
}
