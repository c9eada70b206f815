// SPDX-License-Identifier: Apache-2.0
#include "adserver/AdServer.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>

#include <csignal>
#include <cstdio>
#include <mutex>

namespace {

using namespace velmora::adserver;

struct Options {
    QCommandLineOption campaign{QStringLiteral("campaign"),
                                QStringLiteral("Folder with campaign.json and the media."),
                                QStringLiteral("dir")};
    QCommandLineOption port{QStringLiteral("port"),
                            QStringLiteral("Port on 127.0.0.1; 0, the default, takes a free one."),
                            QStringLiteral("number"), QStringLiteral("0")};
    QCommandLineOption caOut{QStringLiteral("ca-out"),
                             QStringLiteral("Write the certificate that clients must trust."),
                             QStringLiteral("file")};
    QCommandLineOption fault{
        QStringLiteral("fault"),
        QStringLiteral("Misbehave on a path; \"/media/*\" means all below /media. Kinds: "
                       "delay:MS, status:CODE[:BODY], body:TEXT, truncated, huge:BYTES, reset, "
                       "close, stale, hang, redirect:URL. May be given several times."),
        QStringLiteral("path=kind[:arg]")};
};

int fail(const QString &message) {
    std::fprintf(stderr, "velmora-adserver: %s\n", qPrintable(message));
    return 1;
}

bool writeFile(const QString &path, const QByteArray &bytes, QString *error) {
    QSaveFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!isWritten)
        *error = path + QStringLiteral(": ") + file.errorString();
    return isWritten;
}

void printRequest(const RecordedRequest &request, const QString &outcome) {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    // Encoded, so that the line stays one line whatever the client sent.
    const QByteArray method = request.method.toPercentEncoding();
    const QByteArray target = request.target.toPercentEncoding("/?&=%:;,+@!$'()*~#[]");
    std::printf("%s %s (%lld bytes) %s\n", method.constData(), target.constData(),
                static_cast<long long>(request.body.size()), qPrintable(outcome));
    std::fflush(stdout);
}

int serve(AdServer &server, quint16 port) {
    // Blocked before any thread starts, so that no thread but sigwait() below gets the signals.
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    server.setObserver([&server](const RecordedRequest &request, const QString &outcome) {
        printRequest(request, outcome);
        server.log().clear(); // not used here, and would grow for as long as the program runs
    });
    const QString url = server.start(port);
    if (url.isEmpty())
        return fail(server.errorString());
    std::printf("%s\n", qPrintable(url));
    std::fflush(stdout);
    int received = 0;
    sigwait(&signals, &received);
    server.stop();
    return 0;
}

} // namespace

int main(int argc, char *argv[]) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Development ad server for Velmora: HTTPS on the loopback interface.\n"
        "Prints its base URL, then one line for each request; SIGINT or SIGTERM ends it."));
    parser.addHelpOption();
    const Options options;
    parser.addOptions({options.campaign, options.port, options.caOut, options.fault});
    parser.process(app);

    if (!parser.positionalArguments().isEmpty())
        return fail(QStringLiteral("unexpected argument: ") + parser.positionalArguments().first());
    bool isPort = false;
    const quint16 port = parser.value(options.port).toUShort(&isPort);
    if (!isPort)
        return fail(QStringLiteral("not a port: ") + parser.value(options.port));
    AdServer server;
    for (const QString &text : parser.values(options.fault))
        if (!server.faults().setFromText(text))
            return fail(QStringLiteral("not a fault: ") + text);
    if (parser.isSet(options.campaign)) {
        const QString folder = parser.value(options.campaign);
        if (!QDir(folder).exists())
            return fail(QStringLiteral("no such folder: ") + folder);
        server.campaign().setFolder(folder);
        server.campaign().errorString(); // prints what is wrong with campaign.json
    }
    QString error;
    if (parser.isSet(options.caOut) &&
        !writeFile(parser.value(options.caOut), server.caPem(), &error))
        return fail(error);
    return serve(server, port);
}
