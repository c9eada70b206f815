// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QLabel window(QStringLiteral("A host in ten lines"));
    window.resize(900, 600);
    window.show();
    Velmora::setSplashScreenDelay(3);
    Velmora::setSplashScreenSkippedWhenEmpty(true); // without a video, nobody waits for one
    Velmora::setBannersReserveSpace(true);
    Velmora::addBannerForWindow(&window);
    Velmora::addSplashScreenToWindow(&window);
    QTimer timer; // a real host calls show() when its user pauses, after saving a file for example
    QObject::connect(&timer, &QTimer::timeout, &Velmora::show);
    timer.start(1000);
    QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::removeAdsClicked,
                     &Velmora::removeAdsNow);
    return application.exec();
}
