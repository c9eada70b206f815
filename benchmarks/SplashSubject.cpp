// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/SplashSubject.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <vector>

namespace velmora::bench {

namespace {

const QString StartScreens = QStringLiteral("start screens");
const QString SplashVideo = QStringLiteral("splash video");

constexpr QSize SmallWindow(600, 440);
constexpr QSize ClipSize(960, 540);
constexpr int LongestLoadTime = 15;

} // namespace

bool SplashSubject::has(const QString &name) {
    return name == StartScreens || name == SplashVideo;
}

int SplashSubject::run(const QString &name, int argc, char **argv) {
    const bool isVideo = name == SplashVideo;
    // The user's own settings and caches stay unused.
    const QTemporaryDir home;
    for (const char *place : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(place, home.path().toUtf8());
    const QApplication application(argc, argv);
    std::vector<QWidget> windows(isVideo ? 1 : 4);
    for (size_t i = 0; i < windows.size(); ++i) {
        windows[i].resize(isVideo ? ClipSize : SmallWindow);
        windows[i].move(int(i % 2) * 640, int(i / 2) * 500);
        windows[i].show();
        Velmora::addSplashScreenToWindow(&windows[i]);
    }
    Velmora::setSplashScreenLoadTime(LongestLoadTime);
    Velmora::setDefaultVideoURL(QUrl::fromLocalFile(QStringLiteral(VELMORA_SAMPLE_VIDEO)),
                                QStringLiteral("1"));
    const auto shown = NotificationCenter::defaultCenter().addObserver(
        isVideo ? VLMadsVideoDidStart : VLMsplashScreenDidShow, [](const Notification &) {
            std::puts("PLAYING");
            std::fflush(stdout);
        });
    // A splash screen is refused until one of the windows is the key window.
    QTimer retrying;
    QObject::connect(&retrying, &QTimer::timeout, [&retrying, isVideo] {
        isVideo ? Velmora::showWithouSplash() : Velmora::forceShow();
        if (Velmora::isShowSplashScreen())
            retrying.stop();
    });
    retrying.start(100);
    return QApplication::exec();
}

} // namespace velmora::bench
