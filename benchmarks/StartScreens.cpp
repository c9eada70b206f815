#include "benchmarks/StartScreens.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <array>
#include <cstdio>

namespace velmora::bench {

namespace {
constexpr QSize WindowSize(600, 440);
constexpr int LongestLoadTime = 15;
} // namespace

int StartScreens::run(int argc, char **argv) {
    // Nothing of the person who measures is read or written.
    const QTemporaryDir home;
    for (const char *place : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME"})
        qputenv(place, home.path().toUtf8());
    const QApplication application(argc, argv);
    std::array<QWidget, 4> windows;
    for (size_t i = 0; i < windows.size(); ++i) {
        windows[i].resize(WindowSize);
        windows[i].move(int(i % 2) * 640, int(i / 2) * 500);
        windows[i].show();
        Velmora::addSplashScreenToWindow(&windows[i]);
    }
    Velmora::setSplashScreenLoadTime(LongestLoadTime);
    const auto shown = NotificationCenter::defaultCenter().addObserver(
        VLMsplashScreenDidShow, [](const Notification &) {
            std::puts("PLAYING");
            std::fflush(stdout);
        });
    // Shown as soon as one of them is the key window.
    QTimer asking;
    QObject::connect(&asking, &QTimer::timeout, [] {
        if (!Velmora::isShowSplashScreen())
            Velmora::forceShow();
    });
    asking.start(100);
    QObject::connect(&asking, &QTimer::timeout, [&asking] {
        if (Velmora::isShowSplashScreen())
            asking.stop();
    });
    return QApplication::exec();
}

} // namespace velmora::bench
