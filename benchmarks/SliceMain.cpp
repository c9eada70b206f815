// SPDX-License-Identifier: Apache-2.0
// Measures the longest slice of a host's main thread, and the host's peak memory, while the
// framework shows the largest pictures that it accepts and reads the largest tables.

#include "benchmarks/BenchServer.h"
#include "benchmarks/SliceSubject.h"
#include "tests/support/LargePictures.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>

using velmora::bench::BenchServer;
using velmora::bench::SliceSubject;
using velmora::test::LargePicture;

namespace {

constexpr int ManyAds = 10'000;

QJsonObject banner(const QString &picture, int number) {
    return {{QStringLiteral("banner_id"), number},
            {QStringLiteral("name"), QStringLiteral("Application number %1").arg(number)},
            {QStringLiteral("priority"), 1 + number % 7},
            {QStringLiteral("updated"), QStringLiteral("2024-05-06T07:08:09Z")},
            {QStringLiteral("image_728x90"), picture},
            {QStringLiteral("market_url"),
             QStringLiteral("https://apps.example/app/id%1").arg(number)}};
}

QJsonObject video(const QString &still) {
    return {{QStringLiteral("VLMAppName"), QStringLiteral("sample")},
            {QStringLiteral("video_file_landscape"), QStringLiteral("/film.mp4")},
            {QStringLiteral("image"), still},
            {QStringLiteral("priority"), 1},
            {QStringLiteral("market_url"), QStringLiteral("https://apps.example/app/id1")}};
}

QJsonArray banners(const QString &picture, int count) {
    QJsonArray ads;
    for (int i = 0; i < count; ++i)
        ads.append(banner(picture, i));
    return ads;
}

QByteArray contents(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is missing", qPrintable(path));
    return file.readAll();
}

/// What is measured: a host, what the server sends it, and what an earlier run has stored.
struct Trial {
    QString name;
    QString subject;
    QByteArray reply;
    QByteArray storedAds;
};

QByteArray reply(const QJsonArray &banners, const QJsonArray &videos) {
    return QJsonDocument(QJsonObject{{QStringLiteral("standard"), banners},
                                     {QStringLiteral("video"), videos}})
        .toJson(QJsonDocument::Compact);
}

// As they are appended, an ad a line.
QByteArray storedAds(const QJsonArray &banners, const QJsonObject &video) {
    QByteArray lines;
    for (const QJsonValue &ad : banners)
        lines += '\n' + QJsonDocument(QJsonObject{{QStringLiteral("standard"), QJsonArray{ad}}})
                            .toJson(QJsonDocument::Compact);
    return lines + '\n' + reply({}, {video});
}

void measure(const Trial &trial, const QProcessEnvironment &environment, const QString &caches) {
    QDir(caches).removeRecursively();
    if (!trial.storedAds.isEmpty()) {
        QDir().mkpath(caches);
        QFile table(caches + QStringLiteral("/savedAds"));
        table.open(QIODevice::WriteOnly);
        table.write(trial.storedAds);
    }
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--subject"), trial.subject});
    if (!child.waitForFinished(120'000))
        qFatal("%s did not end", qPrintable(trial.name));
    const QList<QByteArray> figures = child.readAllStandardOutput().simplified().split(' ');
    std::printf("%-28s %12.1f %12.1f %14.0f %12.0f\n", qPrintable(trial.name),
                figures.value(0).toDouble(), figures.value(1).toDouble(),
                figures.value(2).toDouble(), figures.value(3).toDouble());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv) {
    // The hosts make a QApplication of their own.
    for (int i = 1; i + 1 < argc; ++i) {
        if (qstrcmp(argv[i], "--subject") == 0)
            return SliceSubject::run(QString::fromLocal8Bit(argv[i + 1]), argc, argv);
    }

    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption roundsOption(QStringLiteral("rounds"),
                                          QStringLiteral("measurements of each trial"),
                                          QStringLiteral("n"), QStringLiteral("3"));
    const QCommandLineOption onlyOption(QStringLiteral("only"),
                                        QStringLiteral("trials whose name contains this"),
                                        QStringLiteral("text"));
    parser.addOptions({roundsOption, onlyOption});
    parser.process(application);

    BenchServer bench;
    velmora::adserver::AdServer &server = bench.server();
    const QString caches = bench.cachesFolder() + QStringLiteral("/velmora-slice-bench/Velmora");

    const QString small = QStringLiteral("/small.gif");
    server.campaign().setMedia(small, contents(QStringLiteral(VELMORA_SAMPLE_BANNER)));
    server.campaign().setMedia(QStringLiteral("/film.mp4"),
                               contents(QStringLiteral(VELMORA_SAMPLE_VIDEO)));
    const QByteArray oneOfEach = reply(banners(small, 1), {video(small)});
    const QJsonArray many = banners(small, ManyAds);
    QList<Trial> trials{{QStringLiteral("window"), QStringLiteral("window"), oneOfEach, {}},
                        {QStringLiteral("banner"), QStringLiteral("banner"), oneOfEach, {}},
                        {QStringLiteral("banner, one stored ad"), QStringLiteral("banner"),
                         oneOfEach, storedAds(banners(small, 1), video(small))},
                        {QStringLiteral("banner, 10000 stored ads"), QStringLiteral("banner"),
                         oneOfEach, storedAds(many, video(small))},
                        {QStringLiteral("banner, reply of 10000"),
                         QStringLiteral("banner"),
                         reply(many, {video(small)}),
                         {}},
                        {QStringLiteral("splash"), QStringLiteral("splash"), oneOfEach, {}}};
    for (const LargePicture &picture : LargePicture::all()) {
        const QString path =
            QStringLiteral("/%1.%2").arg(QString(picture.name).replace(u' ', u'-'), picture.suffix);
        server.campaign().setMedia(path, picture.bytes);
        trials.append({QStringLiteral("banner, %1").arg(picture.name),
                       QStringLiteral("banner"),
                       reply(banners(path, 1), {}),
                       {}});
        trials.append({QStringLiteral("splash, %1").arg(picture.name),
                       QStringLiteral("splash"),
                       reply({}, {video(path)}),
                       {}});
    }

    std::printf("%-28s %12s %12s %14s %12s\n", "", "slice, ms", "CPU, ms", "picture at, ms",
                "peak, MB");
    for (int round = 0; round < parser.value(roundsOption).toInt(); ++round) {
        for (const Trial &trial : trials) {
            if (!trial.name.contains(parser.value(onlyOption)))
                continue;
            server.campaign().setReply(trial.reply);
            measure(trial, bench.environment(), caches);
        }
    }
    return 0;
}
