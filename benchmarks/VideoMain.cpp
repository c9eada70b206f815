// SPDX-License-Identifier: Apache-2.0
// Compares the CPU time of the framework's video player with that of Qt's video widget and of
// decoding alone, each in a process of its own and over the same part of the clip. Then measures
// splash screens, how soon the player shows a frame, and whether it survives a blocked main thread.

#include "benchmarks/ProcessFigures.h"
#include "benchmarks/SplashSubject.h"
#include "benchmarks/VideoSubject.h"
#include "benchmarks/VideoTrials.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QProcess>
#include <QtCore/QThread>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

using velmora::bench::ProcessFigures;
using velmora::bench::SplashSubject;
using velmora::bench::VideoSubject;
using velmora::bench::VideoTrials;

namespace {

// The clip lasts eight seconds.
constexpr int SkippedMs = 1000;
constexpr int MeasuredMs = 6000;
constexpr int UsualStalls = 100;

struct Cost {
    double cpuPercent = 0;
    double megabytes = 0;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

// Returns nothing if the clip was not played; Qt's player sometimes does not start.
std::optional<Cost> costOf(const QString &subject) {
    QStringList arguments = SplashSubject::has(subject)
                                ? QStringList{QCoreApplication::applicationFilePath(),
                                              QStringLiteral("--subject"), subject}
                                : VideoSubject::command(subject);
    const QString program = arguments.takeFirst();
    QProcess child;
    // The video helper is no child process, but inherits this.
    static int s_run = 0;
    const QString mark =
        QStringLiteral("%1-%2").arg(QCoreApplication::applicationPid()).arg(++s_run);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VELMORA_BENCH_RUN"), mark);
    child.setProcessEnvironment(environment);
    const QByteArray entry = "VELMORA_BENCH_RUN=" + mark.toLatin1();
    child.setStandardErrorFile(QProcess::nullDevice());
    child.start(program, arguments);
    bool isPlaying = false;
    while (!isPlaying && child.waitForReadyRead(10'000))
        isPlaying = child.readAll().contains("PLAYING");
    if (!isPlaying) {
        child.kill();
        child.waitForFinished();
        return {};
    }
    QThread::msleep(SkippedMs);
    const ProcessFigures before = ProcessFigures::ofAllWith(entry);
    QThread::msleep(MeasuredMs);
    const ProcessFigures after = ProcessFigures::ofAllWith(entry);
    const bool isAlive = child.state() == QProcess::Running;
    child.kill();
    child.waitForFinished();
    if (!isAlive)
        return {};
    return Cost{(after.cpuSeconds - before.cpuSeconds) / (MeasuredMs / 1000.0) * 100,
                after.privateMegabytes};
}

Cost costOfPlaying(const QString &subject) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (const auto cost = costOf(subject))
            return *cost;
        std::fprintf(stderr, "%s did not play; trying again\n", qPrintable(subject));
    }
    qFatal("%s does not play", qPrintable(subject));
}

void printCosts(int rounds) {
    // The subjects take turns, so that other load of the machine affects all of them alike.
    std::map<QString, std::vector<double>> cpu;
    std::map<QString, std::vector<double>> memory;
    for (int round = 0; round < rounds; ++round) {
        for (const QString &subject : VideoSubject::names()) {
            const Cost cost = costOfPlaying(subject);
            cpu[subject].push_back(cost.cpuPercent);
            memory[subject].push_back(cost.megabytes);
        }
    }
    for (const QString &subject : VideoSubject::names()) {
        const auto [least, most] = std::minmax_element(cpu[subject].begin(), cpu[subject].end());
        std::printf("%-10s CPU %.1f %% of one core (%.1f to %.1f), private memory %.0f MB\n",
                    qPrintable(subject), median(cpu[subject]), *least, *most,
                    median(memory[subject]));
    }
    for (const QString &peer : VideoSubject::names().mid(1))
        std::printf("player : %-10s CPU %.2f\n", qPrintable(peer),
                    median(cpu[QStringLiteral("player")]) / median(cpu[peer]));
}

void printSplashScreens(int rounds) {
    for (const char *subject : {"start screens", "splash video"}) {
        std::vector<double> cpu;
        for (int round = 0; round < rounds; ++round)
            cpu.push_back(costOfPlaying(QLatin1String(subject)).cpuPercent);
        std::printf("%-13s CPU %.1f %% of one core (at most %.1f)\n", subject, median(cpu),
                    *std::max_element(cpu.begin(), cpu.end()));
    }
}

void printStarts(const char *title, bool isPrepared) {
    std::vector<double> paints;
    std::vector<double> destroys;
    const std::vector<VideoTrials::Start> starts = VideoTrials::starts(21, isPrepared);
    for (const VideoTrials::Start &start : starts) {
        paints.push_back(start.firstPaintMs);
        destroys.push_back(start.destroyMs);
    }
    const double first = paints.front();
    paints.erase(paints.begin());
    destroys.erase(destroys.begin());
    std::printf("%s: first picture painted after %.0f ms; after that, median of 20: %.0f ms "
                "(%.0f to %.0f); destroyed while playing in at most %.2f ms\n",
                title, first, median(paints), *std::min_element(paints.begin(), paints.end()),
                *std::max_element(paints.begin(), paints.end()),
                *std::max_element(destroys.begin(), destroys.end()));
}

int printStalls(int count) {
    constexpr int AtOnce = 5;
    VideoTrials::Stalls all;
    while (all.started < count) {
        const auto some = VideoTrials::stalls(std::min(AtOnce, count - all.started));
        all.started += some.started;
        all.good += some.good;
    }
    std::printf("main thread stopped for 2 s in mid-play: %d of %d played on to the end\n",
                all.good, all.started);
    return all.good == all.started ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    for (int i = 1; i + 1 < argc; ++i) {
        if (qstrcmp(argv[i], "--subject") != 0)
            continue;
        const QString subject = QString::fromLocal8Bit(argv[i + 1]);
        return SplashSubject::has(subject) ? SplashSubject::run(subject, argc, argv)
                                           : VideoSubject::run(subject, argc, argv);
    }
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption roundsOption(QStringLiteral("rounds"),
                                          QStringLiteral("measurements of each subject"),
                                          QStringLiteral("n"), QStringLiteral("3"));
    const QCommandLineOption stallsOption(
        QStringLiteral("stalls"),
        QStringLiteral("only play so many clips with a stopped main thread"), QStringLiteral("n"),
        QStringLiteral("0"));
    parser.addOptions({roundsOption, stallsOption});
    parser.process(application);
    if (const int stalls = parser.value(stallsOption).toInt(); stalls > 0)
        return printStalls(stalls);
    printCosts(std::max(1, parser.value(roundsOption).toInt()));
    printSplashScreens(std::max(1, parser.value(roundsOption).toInt()));
    printStarts("player, prepared", true);
    printStarts("player, not prepared", false);
    const int result = printStalls(UsualStalls);
    VideoTrials::doWithoutHelper();
    printStarts("in process", false);
    return result;
}
