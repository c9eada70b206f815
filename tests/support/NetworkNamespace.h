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
    return RouteMonitor::query(IpAddress(QLatin1String(address)));
}

/// What a monitor's callbacks were called with. Shared with the callbacks, because the watching
/// thread may still run one after the monitor was stopped and the test has ended.
struct Reports {
    std::atomic<int> reachable = 0;
    std::atomic<int> unreachable = 0;
    std::atomic<int> all = 0;
    std::atomic<ReachabilityFlags> last = 0;
    std::atomic<bool> cameOnMainThread = false;
};

/// Counts a monitor's callbacks and notifications and checks their threads.
struct Recorder {
    explicit Recorder(Reachability &monitor)
        : observation(NotificationCenter::defaultCenter().addObserver(
              kReachabilityChangedNotification, QVariant::fromValue(monitor.shared_from_this()),
              [this](const Notification &) {
                  EXPECT_TRUE(MainQueue::isMainThread());
                  ++notified;
              })) {
        const auto count = [](Reports &counts, std::atomic<int> Reports::*counter) {
            if (MainQueue::isMainThread())
                counts.cameOnMainThread = true;
            ++(counts.*counter);
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

/// How often the threads that watch routes have been woken; -1 while there is no such thread.
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

/// Puts a file in the place of one of the system's, in the test's namespace and until that ends.
class FileInstead {
public:
    explicit FileInstead(const char *path) {
        EXPECT_TRUE(m_file.open());
        const QByteArray name = QFile::encodeName(m_file.fileName());
        EXPECT_EQ(mount(name.constData(), path, nullptr, MS_BIND, nullptr), 0);
    }
    void write(const QByteArray &content) {
        m_file.resize(0);
        m_file.seek(0);
        m_file.write(content);
        m_file.flush();
    }

private:
    QTemporaryFile m_file;
};

/// A test that changes real routes. Each test runs itself once more in a child process, which has a
/// network namespace of its own: the test's body is for isInside().
class NetworkNamespaceTest : public testing::Test {
protected:
    static bool isInside() { return qEnvironmentVariableIsSet(insideVariable); }

    void SetUp() override {
        if (!isInside())
            return;
        ip("link set lo up");
        ip("link add near type veth peer name far");
        // The kernel would add link-local addresses late, and these changes would hide missed ones.
        ip("link set near addrgenmode none");
        ip("link set far addrgenmode none");
        ip("addr add 10.9.0.1/24 dev near");
        ip("-6 addr add fd09::1/64 dev near nodad");
        ip("link set near up");
        ip("link set far up");
        ASSERT_TRUE(eventually([] { return query("10.9.0.2") & ReachabilityFlagReachable; }));
    }

    /// Runs the current test in a network namespace.
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

    // Not QProcess: its child shares the parent's memory until it runs the program, and the thread
    // sanitizer then misjudges whatever this thread does later.
    static bool run(const QByteArray &command) {
        return std::system("PATH=$PATH:/usr/sbin:/sbin; " + command) == 0;
    }
    static bool tryIp(const char *arguments) { return run(QByteArray("ip ") + arguments); }
    static void ip(const char *arguments) { ASSERT_TRUE(tryIp(arguments)) << arguments; }
};

} // namespace velmora::test
