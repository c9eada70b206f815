// SPDX-License-Identifier: Apache-2.0
#include "BackgroundThread.h"
#include "MainQueue.h"
#include "SerialQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

// Whether a fault of ours is reported when it happens under Qt's event loop, as nearly everything
// does. A suppression that is too wide would hide it.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
namespace velmora::test {

namespace {

QByteArray outputOf(const QString &child) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=FaultyHost.DISABLED_") + child,
                   QStringLiteral("--gtest_also_run_disabled_tests")});
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_NE(process.exitCode(), 0);
    return process.readAll();
}

} // namespace

#ifdef __SANITIZE_ADDRESS__
/// Run by the test below.
TEST(FaultyHost, DISABLED_Leaks) {
    static std::vector<int *> lost;
    MainQueue::post([] {
        lost.push_back(new int[100]);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    lost.clear();
}

TEST(SanitizerCanaryTest, ALeakUnderTheEventLoopIsReported) {
    EXPECT_TRUE(outputOf(QStringLiteral("Leaks")).contains("detected memory leaks"));
}
#else
namespace {

/// A worker's access, and one of the main thread that comes later but is not synchronised with it:
/// for the sanitizer a relaxed atomic orders nothing. The worker stays until both are done, because
/// a lock that its thread takes at its end would order them if the main thread took it next.
class Race {
public:
    std::function<void()> onWorker(void (*access)()) {
        return [this, access] {
            access();
            m_workerIsDone.store(true, std::memory_order_relaxed);
            waitFor(m_mainThreadIsDone);
        };
    }

    std::function<void()> onMainThread(void (*access)()) {
        return [this, access] {
            waitFor(m_workerIsDone);
            access();
            QTimer::singleShot(0, [this] { // after an object's deletion
                m_mainThreadIsDone.store(true, std::memory_order_relaxed);
                QCoreApplication::quit();
            });
        };
    }

private:
    static void waitFor(const std::atomic<bool> &isDone) {
        while (!isDone.load(std::memory_order_relaxed))
            std::this_thread::yield();
    }

    std::atomic<bool> m_workerIsDone = false;
    std::atomic<bool> m_mainThreadIsDone = false;
};

} // namespace

/// Run by the test below, as the next two.
TEST(FaultyHost, DISABLED_RacesInPostedWork) {
    static Race race;
    static int shared = 0;
    startBackgroundThread("velmora-canary", AtExit::Ignores, race.onWorker([] { ++shared; }),
                          nullptr);
    MainQueue::post(race.onMainThread([] { ++shared; }));
    QCoreApplication::exec();
}

TEST(FaultyHost, DISABLED_RacesInAHandlerOfASignal) {
    static Race race;
    static QByteArray shared = "neither";
    static SerialQueue queue("velmora-canary");
    queue.run(race.onWorker([] { shared = QByteArray(20, 'w'); }));
    QTimer timer;
    timer.setSingleShot(true);
    timer.start(0);
    QObject::connect(&timer, &QTimer::timeout,
                     race.onMainThread([] { shared = QByteArray(20, 'm'); }));
    QCoreApplication::exec();
}

TEST(FaultyHost, DISABLED_RacesWithAnObjectThatQtDeletes) {
    struct Object : QObject {
        int shared = 0;
    };
    static Race race;
    static Object &object = *new Object;
    startBackgroundThread("velmora-canary", AtExit::Ignores, race.onWorker([] { ++object.shared; }),
                          nullptr);
    MainQueue::post(race.onMainThread([] { object.deleteLater(); }));
    QCoreApplication::exec();
}

TEST(SanitizerCanaryTest, RacesUnderTheEventLoopAreReported) {
    QStringList children{QStringLiteral("RacesInPostedWork"),
                         QStringLiteral("RacesInAHandlerOfASignal")};
#ifndef VELMORA_TEST_FOREIGN_THREADS // where free() is not looked at
    children.append(QStringLiteral("RacesWithAnObjectThatQtDeletes"));
#endif
    for (const QString &child : children) {
        SCOPED_TRACE(child.toStdString());
        EXPECT_TRUE(outputOf(child).contains("ThreadSanitizer: data race"));
    }
}
#endif

} // namespace velmora::test
#endif
