// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Velmora.h>

#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

// A host that plays the video whose file it is given, without an ad server. Its status is 0 once a
// video helper sends it pictures, which are in shared memory.
int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("embedding-host"));
    QLabel window(QStringLiteral("A host that embeds the library"));
    window.resize(900, 600);
    window.show();
    Velmora::activateDebugMode();
    Velmora::setDefaultVideoWithURL(QUrl::fromLocalFile(application.arguments().value(1)), {});
    Velmora::addSplashScreenToWindow(&window);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [] {
        if (!Velmora::isShowSplashScreen())
            Velmora::showWithouSplash();
        QFile maps(QStringLiteral("/proc/self/maps"));
        if (maps.open(QIODevice::ReadOnly) && maps.readAll().contains("memfd:velmora-pictures"))
            QApplication::exit(0);
    });
    timer.start(100);
    QTimer::singleShot(30'000, [] { QApplication::exit(1); });
    return application.exec();
}
