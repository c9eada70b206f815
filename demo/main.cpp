// SPDX-License-Identifier: Apache-2.0
#include "demo/AppIcon.h"
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Options.h"
#include "demo/Theme.h"
#include "demo/tour/Scene.h"
#include "demo/tour/Tour.h"

#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

using namespace demo;

int runTour(int argc, char *argv[], const Options &options) {
    QCoreApplication application(argc, argv);
    return Tour(options).run() ? 0 : 1;
}

int runJournal(int argc, char *argv[], const Options &options) {
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Tidewick"));
    QApplication::setApplicationName(QStringLiteral("tidewick"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tidewick"));
    QApplication::setWindowIcon(AppIcon::icon());
    theme::applyTo(application);
    DemoApplication demo;
    demo.setTimes(options.times);
    if (!demo.startServer(options.campaign)) {
        std::fprintf(stderr, "velmora-demo: %s\n", qPrintable(demo.server().errorString()));
        return 1;
    }
    if (options.isScene()) {
        const std::unique_ptr<Scene> scene = Scene::named(options.scene, demo, options);
        return scene && scene->perform() ? 0 : 1;
    }
    demo.openWindow()->setPanelShown(true);
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = Options::fromArguments(arguments);
    return options.isTour() ? runTour(argc, argv, options) : runJournal(argc, argv, options);
}
