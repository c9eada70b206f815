// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "tests/tour/SceneFactory.h"
#include "tests/tour/Tour.h"

#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

using namespace demo;
using namespace demo::tour;

int runTour(int argc, char *argv[], const TourOptions &options) {
    const QCoreApplication application(argc, argv);
    return Tour(options).run() ? 0 : 1;
}

int runScene(int argc, char *argv[], const TourOptions &options) {
    QApplication application(argc, argv);
    DemoApplication::setUp(application);
    DemoApplication demo;
    if (!demo.startServer(options.campaign)) {
        std::fprintf(stderr, "velmora-tour: %s\n", qPrintable(demo.server().errorString()));
        return 1;
    }
    const std::unique_ptr<Scene> scene = SceneFactory::make(demo, options);
    if (!scene) {
        std::fprintf(stderr, "velmora-tour: no such scene: %s\n", qPrintable(options.scene));
        return 1;
    }
    return scene->perform() ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const TourOptions options = TourOptions::fromArguments(arguments);
    return options.isScene() ? runScene(argc, argv, options) : runTour(argc, argv, options);
}
