// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoApplication.h"
#include "demo/JournalWindow.h"
#include "demo/Options.h"

#include <QtWidgets/QApplication>

#include <cstdio>

int main(int argc, char *argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const auto options = demo::Options::fromArguments(arguments);
    options.surroundings.applyBeforeStart();
    QApplication application(argc, argv);
    demo::DemoApplication::setUp(application);
    demo::DemoApplication demo;
    if (!demo.startServer(options.campaign)) {
        std::fprintf(stderr, "velmora-demo: %s\n", qPrintable(demo.server().errorString()));
        return 1;
    }
    demo.setOptions(options);
    demo.openWindow()->setPanelShown(true);
    return QApplication::exec();
}
