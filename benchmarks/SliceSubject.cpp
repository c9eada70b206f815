// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/SliceSubject.h"

#include "benchmarks/ProcessFigures.h"
#include "tests/support/Heartbeat.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Velmora.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cstdio>

namespace velmora::bench {

namespace {

constexpr QSize WindowSize(1000, 600);
// So that the slices of the window itself are over.
constexpr int WindowMs = 1000;
constexpr int BannerMs = 8000;
// In which the video and its still are downloaded.
constexpr double LoadSeconds = 6;
// From the beginning of the video to just before the end screen comes, and what follows.
constexpr int VideoMs = 4500;
constexpr int EndScreenMs = 6000;

/// A host that is measured: its windows and what is known so far.
class Host {
public:
    Host() { m_window.resize(WindowSize); }

    void showBanner(bool withBanner) {
        m_window.show();
        QTimer::singleShot(WindowMs, [this, withBanner] {
            m_heartbeat.restart();
            m_sinceStart.start();
            if (withBanner)
                Velmora::addBannerForWindow(&m_window);
            noteFirstPicture();
        });
        QTimer::singleShot(WindowMs + BannerMs / 2, [this] { m_window.resize(700, 500); });
        QTimer::singleShot(WindowMs + BannerMs, [this] { end(); });
    }

    void showSplash() {
        m_other.resize(WindowSize);
        m_other.show();
        m_window.show();
        m_window.activateWindow();
        Velmora::setSplashScreenDelay(LoadSeconds);
        Velmora::setSplashScreenLoadTime(1);
        Velmora::addSplashScreenToWindow(&m_other);
        Velmora::addSplashScreenToWindow(&m_window);
        m_started = NotificationCenter::defaultCenter().addObserver(
            VLMadsVideoDidStart, [this](const Notification &) {
                QTimer::singleShot(VideoMs, [this] { m_heartbeat.restart(); });
                QTimer::singleShot(VideoMs + EndScreenMs, [this] { end(); });
            });
        QObject::connect(&m_poll, &QTimer::timeout, [this] {
            if (!Velmora::isADSReady())
                return;
            m_poll.stop();
            Velmora::forceShow();
        });
        m_poll.start(50);
    }

private:
    void noteFirstPicture() {
        QObject::connect(&m_poll, &QTimer::timeout, [this] {
            const auto *picture = m_window.findChild<QWidget *>(QStringLiteral("bannerImage"));
            if (!picture || !picture->isVisible())
                return;
            m_firstPictureMs = double(m_sinceStart.nsecsElapsed()) / 1e6;
            m_poll.stop();
        });
        m_poll.start(1);
    }

    void end() {
        const test::Heartbeat::Gap gap = m_heartbeat.longest();
        std::printf("%f %f %f %f\n", gap.wallMs, gap.cpuMs, m_firstPictureMs,
                    ProcessFigures::of(QCoreApplication::applicationPid()).peakMegabytes);
        QCoreApplication::quit();
    }

    QWidget m_window;
    QWidget m_other;
    QTimer m_poll;
    QElapsedTimer m_sinceStart;
    test::Heartbeat m_heartbeat;
    NotificationCenter::Observation m_started;
    double m_firstPictureMs = 0;
};

} // namespace

int SliceSubject::run(const QString &name, int argc, char **argv) {
    QApplication application(argc, argv);
    Host host;
    if (name == QLatin1String("splash"))
        host.showSplash();
    else
        host.showBanner(name == QLatin1String("banner"));
    return QApplication::exec();
}

} // namespace velmora::bench
