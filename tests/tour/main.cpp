// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "tests/tour/Scene.h"
#include "tests/tour/Tour.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

using namespace demo;
using namespace demo::tour;

int fail(int exitCode, const QString &reason) {
    std::fprintf(stderr, "velmora-tour: %s\n", qPrintable(reason));
    return exitCode;
}

} // namespace

// The tour starts itself once for each scene, with the hidden options set.
int main(int argc, char *argv[]) {
    QCommandLineOption scene("scene", {}, "name");
    QCommandLineOption started("started", {}, "milliseconds");
    scene.setFlags(QCommandLineOption::HiddenFromHelp);
    started.setFlags(QCommandLineOption::HiddenFromHelp);
    const QCommandLineOption campaign("campaign", "Serve this campaign instead of the sample.",
                                      "folder", DEMO_CAMPAIGN_FOLDER);
    const QCommandLineOption help({"h", "help"}, "Show this help.");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Operates the demo by itself, checks what it shows and saves pictures.");
    parser.addOptions({help, campaign, scene, started});
    parser.addPositionalArgument("folder", "Where the pictures and timeline.txt go.");

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (!parser.parse(arguments))
        return fail(2, parser.errorText());
    if (parser.isSet(help))
        parser.showHelp();
    const QStringList folders = parser.positionalArguments();
    if (folders.size() != 1 || folders.first().isEmpty())
        return fail(2, "exactly one folder is needed (see --help)");
    const QString folder = QDir(folders.first()).absolutePath();

    if (!parser.isSet(scene)) {
        const QCoreApplication application(argc, argv);
        return Tour(folder).run() ? 0 : 1;
    }
    QApplication application(argc, argv);
    DemoApplication::setUp(application);
    DemoApplication demo;
    if (!demo.startServer(parser.value(campaign)))
        return fail(1, demo.server().errorString());
    for (const Tour::Start &start : Tour::starts()) {
        if (start.scene == parser.value(scene)) {
            Scene played(demo, folder, parser.value(started).toLongLong(), start.scene);
            return played.run(start.play) ? 0 : 1;
        }
    }
    return fail(1, "no such scene: " + parser.value(scene));
}
