// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/hosts/SliceHost.h"

#include "benchmarks/hosts/HostReport.h"
#include "benchmarks/hosts/PlainWindow.h"
#include "tests/support/Heartbeat.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

namespace velmora::bench {

namespace {

// So that the slices of the window itself are over.
constexpr int WindowMs = 1000;
constexpr int LoadTimeSeconds = 2;
constexpr int FadeMs = 1000;

void closeSplashScreen(const QWidget &window) {
    // The banner has a button of the same name.
    for (auto *button : window.findChildren<QAbstractButton *>(QStringLiteral("closeButton"))) {
        if (button->parentWidget()->findChild<QWidget *>(QStringLiteral("videoProgressView")))
            button->click();
    }
}

} // namespace

int SliceHost::run(QSize size, int loadSeconds, int closedAfterMs) {
    PlainWindow window({{0, 0}, size});
    window.show();
    window.activateWindow();
    test::Heartbeat heartbeat;
    bool hasVideo = false;

    const auto started = NotificationCenter::defaultCenter().addObserver(
        VLMadsVideoDidStart, [&](const Notification &) {
            hasVideo = true;
            QTimer::singleShot(closedAfterMs, [&window] { closeSplashScreen(window); });
        });
    const auto closed = NotificationCenter::defaultCenter().addObserver(
        VLMsplashScreenDidClose, [&](const Notification &) {
            QTimer::singleShot(FadeMs, [&] {
                if (!hasVideo)
                    qFatal("the video was not shown");
                const test::Heartbeat::Gap gap = heartbeat.longest();
                HostReport::print("slice", gap.wallMs, gap.cpuMs);
                QApplication::quit();
            });
        });
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&poll] {
        if (!Velmora::isADSReady())
            return;
        Velmora::forceShow();
        if (Velmora::isShowSplashScreen())
            poll.stop();
    });
    QTimer::singleShot(WindowMs, [&] {
        heartbeat.restart();
        Velmora::setSplashScreenDelay(loadSeconds);
        Velmora::setSplashScreenLoadTime(LoadTimeSeconds);
        Velmora::addBannerForWindow(&window);
        Velmora::addSplashScreenToWindow(&window);
        poll.start(50);
    });
    return QApplication::exec();
}

} // namespace velmora::bench
