// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Deployment.h"
#include "MainQueue.h"
#include "RouteMonitor.h"
#include "tests/support/Waiting.h"

#include <Velmora/AdsMacHelper.h>
#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Reachability.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <linux/if.h>
#include <linux/if_tun.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <thread>

namespace velmora::test {

constexpr char insideVariable[] = "VELMORA_TEST_IN_NAMESPACE";

inline ReachabilityFlags query(const char *address) {
    return RouteMonitor::query(QHostAddress(QLatin1String(address)));
}

// What a monitor reported. The watching thread may still be inside a callback when the monitor has
// stopped and the test is over, so that the callbacks share these counts.
struct Reports {
    std::atomic<int> reachable = 0;
    std::atomic<int> unreachable = 0;
    std::atomic<int> all = 0;
    std::atomic<ReachabilityFlags> last = 0;
    std::atomic<bool> cameOnMainThread = false;
};

struct Recorder {
    explicit Recorder(Reachability &monitor)
        : observation(NotificationCenter::defaultCenter().addObserver(
              kReachabilityChangedNotification, QVariant::fromValue(monitor.shared_from_this()),
              [this](const Notification &) {
                  EXPECT_TRUE(MainQueue::isMainThread());
                  ++notified;
              })) {
        const auto count = [](Reports &reports, std::atomic<int> Reports::*counter) {
            if (MainQueue::isMainThread())
                reports.cameOnMainThread = true;
            ++(reports.*counter);
        };
        monitor.reachableBlock = [count, reports = reports](Reachability *) {
            count(*reports, &Reports::reachable);
        };
        monitor.unreachableBlock = [count, reports = reports](Reachability *) {
            count(*reports, &Reports::unreachable);
        };
        monitor.reachabilityBlock = [count, reports = reports](Reachability *,
                                                               ReachabilityFlags flags) {
            reports->last = flags;
            count(*reports, &Reports::all);
        };
    }

    ~Recorder() { EXPECT_FALSE(reports->cameOnMainThread); }

    const std::shared_ptr<Reports> reports = std::make_shared<Reports>();
    int notified = 0;
    NotificationCenter::Observation observation;
};

// How often the threads that watch routes were woken so far; -1 while there is none.
inline int watcherWakeUps() {
    int sum = -1;
    for (const QString &thread : QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs)) {
        QFile status(QStringLiteral("/proc/self/task/%1/status").arg(thread));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromLatin1(status.readAll());
        static const QRegularExpression switches(QStringLiteral("\nvoluntary_\\w+:\\s*(\\d+)"));
        if (text.contains(QLatin1String("velmora-routes")))
            sum = std::max(sum, 0) + switches.match(text).captured(1).toInt();
    }
    return sum;
}

// A test that changes real routes. It runs in a child process with a network of its own.
class NetworkOfOurOwn : public testing::Test {
protected:
    static bool isInside() { return qEnvironmentVariableIsSet(insideVariable); }

    void SetUp() override {
        if (!isInside())
            return;
        ip("link set lo up");
        ip("link add near type veth peer name far");
        // No addresses that come late and hide a change that went unseen.
        ip("link set near addrgenmode none");
        ip("link set far addrgenmode none");
        ip("addr add 10.9.0.1/24 dev near");
        ip("-6 addr add fd09::1/64 dev near nodad");
        ip("link set near up");
        ip("link set far up");
        ASSERT_TRUE(eventually([] { return query("10.9.0.2") & ReachabilityFlagReachable; }));
    }

    // Runs this very test inside.
    static void runInside() {
        if (!run("unshare -rnm ip link >/dev/null 2>&1"))
            GTEST_SKIP() << "no network namespaces here (unshare -rnm, ip)";
        const testing::TestInfo &test = *testing::UnitTest::GetInstance()->current_test_info();
        const QString command =
            QStringLiteral("unset GTEST_OUTPUT; %1=1 timeout -k 5 120 unshare -rnm '%2' "
                           "--gtest_filter=%3.%4")
                .arg(QLatin1String(insideVariable), QCoreApplication::applicationFilePath(),
                     QLatin1String(test.test_suite_name()), QLatin1String(test.name()));
        EXPECT_TRUE(run(command.toLocal8Bit()));
    }

    // Not QProcess: its child shares the memory for a moment, which confuses the thread
    // sanitizer about everything that this thread does later.
    static bool run(const QByteArray &command) {
        return std::system("PATH=$PATH:/usr/sbin:/sbin; " + command) == 0;
    }
    static bool tryIp(const char *arguments) { return run(QByteArray("ip ") + arguments); }
    static void ip(const char *arguments) { ASSERT_TRUE(tryIp(arguments)) << arguments; }
};

} // namespace velmora::test
