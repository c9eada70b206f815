#include "content/Reachability.h"
#include "content/AdsMacHelper.h"

#include "Support/Deployment.h"
#include "platform/MainQueue.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>

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
#include <thread>

using namespace velmora;

namespace {

constexpr int patienceMs = 10'000;
constexpr char insideVariable[] = "VELMORA_TEST_IN_NAMESPACE";

bool eventually(const std::function<bool()> &condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > patienceMs)
            return false;
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

RouteFlags query(const char *address) {
    return RouteMonitor::query(QHostAddress(QLatin1String(address)));
}

// Collects what a monitor reports; keeps itself as long as the callbacks do.
struct Recorder {
    explicit Recorder(Reachability &monitor) {
        monitor.reachableBlock = [this](Reachability *) { onQueue(), ++reachable; };
        monitor.unreachableBlock = [this](Reachability *) { onQueue(), ++unreachable; };
        monitor.reachabilityBlock = [this](Reachability *, ReachabilityFlags flags) {
            onQueue();
            last = flags;
            ++all;
        };
        observation = NotificationCenter::defaultCenter().addObserver(
            kReachabilityChangedNotification, QVariant::fromValue(monitor.shared_from_this()),
            [this](const Notification &) {
                EXPECT_TRUE(MainQueue::isMainThread());
                ++notified;
            });
    }

    void onQueue() { EXPECT_FALSE(MainQueue::isMainThread()); }

    std::atomic<int> reachable = 0;
    std::atomic<int> unreachable = 0;
    std::atomic<int> all = 0;
    std::atomic<ReachabilityFlags> last = 0;
    int notified = 0;
    NotificationCenter::Observation observation;
};

// How often the threads that watch routes were woken so far; -1 while there is none.
int watcherWakeUps() {
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
        ASSERT_TRUE(eventually([] { return query("10.9.0.2") & RouteReachable; }));
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

} // namespace

TEST(Reachability, DerivesItsAnswersFromTheFlags) {
    struct Row {
        ReachabilityFlags flags;
        bool isReachable;
        bool onDemand;
        bool intervention;
        const char *text;
    };
    const Row rows[] = {
        {0, false, false, false, "X- -------"},
        {2, true, false, false, "XR -------"},
        {1, false, false, false, "X- -t-----"},
        {2 | 1, true, false, false, "XR -t-----"},
        {2 | 4, true, false, false, "XR c------"},
        {2 | 4 | 1, false, false, false, "XR ct-----"},
        {2 | 4 | 8, true, true, false, "XR c--C---"},
        {2 | 4 | 32, true, true, false, "XR c---D--"},
        {2 | 8 | 32 | 16, true, false, false, "XR --iCD--"},
        {2 | 4 | 16, true, false, true, "XR c-i----"},
        {2 | 65536, true, false, false, "XR -----l-"},
        {2 | 131072, true, false, false, "XR ------d"},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(Reachability::isReachableWithFlags(row.flags), row.isReachable) << row.text;
        EXPECT_EQ(Reachability::isConnectionOnDemand(row.flags), row.onDemand) << row.text;
        EXPECT_EQ(Reachability::isInterventionRequired(row.flags), row.intervention) << row.text;
        EXPECT_EQ(Reachability::currentReachabilityFlags(row.flags), QLatin1String(row.text));
    }
}

TEST(Reachability, TakesAddressAndPortFromUrl) {
    struct Row {
        const char *url;
        const char *address;
        int port;
        const char *hostName;
    };
    const Row rows[] = {
        {"https://127.0.0.1/a", "127.0.0.1", 443, ""},
        {"http://127.0.0.1", "127.0.0.1", 80, ""},
        {"ftp://127.0.0.1", "127.0.0.1", 80, ""},
        {"https://127.0.0.1:8443", "127.0.0.1", 8443, ""},
        {"https://localhost:8443", "", 0, "localhost"},
    };
    for (const Row &row : rows) {
        const auto monitor = Reachability::reachabilityWithURL(QUrl(QLatin1String(row.url)));
        ASSERT_TRUE(monitor) << row.url;
        EXPECT_EQ(monitor->target().address, QHostAddress(QLatin1String(row.address))) << row.url;
        EXPECT_EQ(monitor->target().port, row.port) << row.url;
        EXPECT_EQ(monitor->target().hostName, QLatin1String(row.hostName)) << row.url;
    }
    for (const char *text : {"1.2.3", "1.2.3.4.5", "256.1.1.1", "::1", "", "a.b.c.d", "1.2.3.4 "})
        EXPECT_FALSE(Reachability::isIpAddress(QLatin1String(text))) << text;
    EXPECT_FALSE(Reachability::isIpAddress(QStringLiteral("1.2.3.4") + QChar::Null));

    EXPECT_FALSE(Reachability::reachabilityWithURL(QUrl(QStringLiteral("file:///etc/hosts"))));
    EXPECT_FALSE(Reachability::reachabilityWithAddress(QHostAddress()));
    EXPECT_FALSE(Reachability::reachabilityWithHostName(QString(300, QLatin1Char('a'))));
    EXPECT_FALSE(Reachability::reachabilityWithHostname(QStringLiteral("a") + QChar::Null));
}

TEST(Reachability, NotifierKeepsItsMonitorAlive) {
    auto monitor = Reachability::reachabilityWithAddress(QHostAddress(QHostAddress::LocalHost));
    ASSERT_TRUE(monitor);
    const std::weak_ptr<Reachability> weak = monitor;
    EXPECT_TRUE(monitor->startNotifier());
    EXPECT_TRUE(monitor->startNotifier());
    monitor.reset();
    ASSERT_FALSE(weak.expired());
    weak.lock()->stopNotifier();
    EXPECT_TRUE(weak.expired());

    auto idle = Reachability::reachabilityWithAddress(QHostAddress(QHostAddress::LocalHost));
    idle->stopNotifier();
    EXPECT_EQ(idle.use_count(), 1);
}

TEST(SystemIdentity, IsUuidText) {
    EXPECT_EQ(AdsMacHelper::uuidText("3d1219c7c4c5404aaa1f6d2a48adfda4\n"),
              QStringLiteral("3D1219C7-C4C5-404A-AA1F-6D2A48ADFDA4"));
    EXPECT_EQ(AdsMacHelper::uuidText("3d1219c7-c4c5-404a-aa1f-6d2a48adfda4"),
              QStringLiteral("3D1219C7-C4C5-404A-AA1F-6D2A48ADFDA4"));
    EXPECT_EQ(AdsMacHelper::uuidText(""), QString());
    EXPECT_EQ(AdsMacHelper::getSystemUUID(), AdsMacHelper::uuidText(QSysInfo::machineUniqueId()));
}

TEST_F(NetworkOfOurOwn, IsReadAtAnyMoment) {
    if (!isInside())
        return runInside();
    EXPECT_EQ(query("127.0.0.1"), RouteReachable | RouteIsLocalAddress | RouteIsDirect);
    EXPECT_EQ(query("10.9.0.1"), RouteReachable | RouteIsLocalAddress | RouteIsDirect);
    EXPECT_EQ(query("10.9.0.2"), RouteReachable | RouteIsDirect);
    EXPECT_EQ(query("::ffff:10.9.0.2"), RouteReachable | RouteIsDirect);
    EXPECT_EQ(query("fd09::2"), RouteReachable | RouteIsDirect);
    EXPECT_EQ(query("192.0.2.1"), 0u);
    EXPECT_EQ(query("fe80::1%nowhere") & RouteIsLocalAddress, 0u);
    EXPECT_EQ(RouteMonitor::query({}), 0u);

    const auto internet = Reachability::reachabilityForInternetConnection();
    const auto local = Reachability::reachabilityForLocalWiFi();
    EXPECT_EQ(internet->currentReachabilityFlags(), QStringLiteral("X- -------"));
    EXPECT_EQ(internet->currentReachabilityString(), QStringLiteral("No Connection"));
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    EXPECT_TRUE(local->isReachable());

    ip("route add default via 10.9.0.2");
    EXPECT_EQ(internet->reachabilityFlags(), RouteFlags(RouteReachable));
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatusWiFi);
    EXPECT_EQ(internet->currentReachabilityString(), QStringLiteral("WiFi"));
    EXPECT_FALSE(internet->isReachableViaWWAN());
    EXPECT_TRUE(AdsMacHelper::isInternetConnection());
    EXPECT_TRUE(internet->description().contains(QLatin1String("(XR -------)>")));
    EXPECT_EQ(query("192.0.2.1"), RouteFlags(RouteReachable));

    Deployment probe = Deployment::builtIn();
    probe.reachabilityProbe = QStringLiteral("10.8.0.1");
    ip("route add unreachable 10.8.0.0/16");
    Deployment::replace(probe);
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    probe.reachabilityProbe = QStringLiteral("no address");
    Deployment::replace(probe);
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    EXPECT_FALSE(Reachability::reachabilityForInternetConnection());
    Deployment::replace({});

    ip("route add unreachable default metric 1");
    ip("route del default via 10.9.0.2");
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    ip("-6 route add default via fd09::2 dev near");
    EXPECT_TRUE(AdsMacHelper::isInternetConnection());
    ip("link set near down");
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    EXPECT_FALSE(local->isReachable());
    ip("link set lo down");
    EXPECT_EQ(query("0.0.0.0"), 0u);
}

TEST_F(NetworkOfOurOwn, ReportsItsChanges) {
    if (!isInside())
        return runInside();
    const auto internet = Reachability::reachabilityForInternetConnection();
    const auto neighbour =
        Reachability::reachabilityWithAddress(QHostAddress(QStringLiteral("10.9.0.2")));
    Recorder ofInternet(*internet);
    Recorder ofNeighbour(*neighbour);
    ASSERT_TRUE(internet->startNotifier());
    ASSERT_TRUE(neighbour->startNotifier());

    struct Row {
        const char *command;
        bool internetAfter;
        bool neighbourAfter;
    };
    const Row rows[] = {
        {"route add default via 10.9.0.2", true, true},
        {"link set far down", false, false},
        {"link set far up", true, true},
        {"route add unreachable 10.9.0.2", false, false},
        {"route del unreachable 10.9.0.2", true, true},
        {"link set near down", false, false},
        {"-6 addr add fd09::3/64 dev near nodad", false, false},
        {"link set near up", false, true},
        {"-6 route add default via fd09::2 dev near", true, true},
        {"-6 route del default via fd09::2 dev near", false, true},
        {"route add blackhole default", false, true},
        {"route replace default via 10.9.0.2", true, true},
        {"addr del 10.9.0.1/24 dev near", false, false},
    };
    bool internetBefore = false;
    bool neighbourBefore = true;
    int internetChanges = 0;
    int neighbourChanges = 0;
    for (const Row &row : rows) {
        // The route to an unreachable gateway stays in force, and so does the default by it.
        const bool internetAfter =
            QLatin1String(row.command) == QLatin1String("route add unreachable 10.9.0.2")
                ? internetBefore
                : row.internetAfter;
        ip(row.command);
        internetChanges += internetAfter != internetBefore;
        neighbourChanges += row.neighbourAfter != neighbourBefore;
        EXPECT_TRUE(eventually([&] {
            return ofInternet.notified == internetChanges &&
                   ofNeighbour.notified == neighbourChanges;
        })) << row.command
            << ": " << ofInternet.notified << " of " << internetChanges << ", "
            << ofNeighbour.notified << " of " << neighbourChanges;
        EXPECT_EQ((ofInternet.last & RouteReachable) != 0, internetAfter) << row.command;
        EXPECT_EQ(internet->isReachable(), internetAfter) << row.command;
        EXPECT_EQ(neighbour->isReachable(), row.neighbourAfter) << row.command;
        internetBefore = internetAfter;
        neighbourBefore = row.neighbourAfter;
    }
    EXPECT_EQ(ofInternet.all, internetChanges);
    EXPECT_EQ(ofInternet.reachable + ofInternet.unreachable, internetChanges);
    EXPECT_EQ(ofNeighbour.reachable + ofNeighbour.unreachable, neighbourChanges);

    // While nothing changes nobody wakes up.
    EXPECT_GE(watcherWakeUps(), 2);
    EXPECT_TRUE(eventually([] {
        const int before = watcherWakeUps();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        return watcherWakeUps() == before;
    }));
    internet->stopNotifier();
    neighbour->stopNotifier();
    EXPECT_TRUE(eventually([] { return watcherWakeUps() == -1; }));
}

TEST_F(NetworkOfOurOwn, KnowsPointToPointLinks) {
    if (!isInside())
        return runInside();
    if (!tryIp("tuntap add dev tunnel mode tun"))
        GTEST_SKIP() << "no tun devices here";
    ip("addr add 10.7.0.1 peer 10.7.0.2 dev tunnel");
    ip("link set tunnel addrgenmode none");
    ip("link set tunnel up");
    ip("route add default dev tunnel");
    const RouteFlags unheld =
        RouteReachable | RouteTransientConnection | RouteConnectionRequired | RouteIsDirect;
    EXPECT_EQ(query("10.7.0.2"), unheld);
    EXPECT_EQ(query("0.0.0.0"), unheld);
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    const auto internet = Reachability::reachabilityForInternetConnection();
    EXPECT_TRUE(internet->connectionRequired() && internet->isConnectionRequired());
    EXPECT_FALSE(internet->isReachable());
    EXPECT_TRUE(internet->isReachableViaWiFi());
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatusNone);
    Recorder recorder(*internet);
    ASSERT_TRUE(internet->startNotifier());

    const int holder = open("/dev/net/tun", O_RDWR | O_CLOEXEC);
    ifreq request{};
    qstrncpy(request.ifr_name, "tunnel", sizeof request.ifr_name);
    request.ifr_flags = IFF_TUN;
    ASSERT_EQ(ioctl(holder, TUNSETIFF, &request), 0);
    EXPECT_TRUE(eventually([&] { return recorder.reachable == 1; }));
    EXPECT_EQ(recorder.last, RouteReachable | RouteTransientConnection | RouteIsDirect);
    EXPECT_TRUE(AdsMacHelper::isInternetConnection());
    close(holder);
    EXPECT_TRUE(eventually([&] { return recorder.unreachable == 1; }));
    internet->stopNotifier();
}

TEST_F(NetworkOfOurOwn, FollowsHostNames) {
    if (!isInside())
        return runInside();
    QTemporaryFile hosts;
    ASSERT_TRUE(hosts.open());
    const auto setAddress = [&hosts](const char *address) {
        hosts.resize(0);
        hosts.seek(0);
        hosts.write(QByteArray(address) + " neighbour.test\n");
        hosts.flush();
    };
    setAddress("10.9.0.2");
    ASSERT_EQ(mount(hosts.fileName().toUtf8().constData(), "/etc/hosts", nullptr, MS_BIND, nullptr),
              0);

    const auto monitor = Reachability::reachabilityWithHostName(QStringLiteral("neighbour.test"));
    ASSERT_TRUE(monitor);
    EXPECT_TRUE(eventually([&] { return monitor->isReachable(); }));
    Recorder recorder(*monitor);
    ASSERT_TRUE(monitor->startNotifier());
    ip("link set far down");
    EXPECT_TRUE(eventually([&] { return recorder.unreachable == 1; }));
    setAddress("192.0.2.1"); // which only the default route leads to
    ip("link set far up");
    ip("route add default via 10.9.0.2");
    EXPECT_TRUE(eventually([&] { return recorder.last == RouteReachable; }));
    monitor->stopNotifier();

    // Nobody answers this look-up; destroying its monitor does not wait for it either.
    auto unknown = Reachability::reachabilityWithHostName(QStringLiteral("host.invalid"));
    ASSERT_TRUE(unknown && unknown->startNotifier());
    EXPECT_FALSE(unknown->isReachable());
    unknown->stopNotifier();
    unknown.reset();
}

TEST_F(NetworkOfOurOwn, ToleratesAMonitorThatGoesInItsCallback) {
    if (!isInside())
        return runInside();
    auto monitor = Reachability::reachabilityForInternetConnection();
    const std::weak_ptr<Reachability> weak = monitor;
    const auto captured = std::make_shared<int>();
    monitor->reachableBlock = [captured](Reachability *self) { self->stopNotifier(); };
    ASSERT_TRUE(monitor->startNotifier());
    monitor.reset();
    ip("route add default via 10.9.0.2");
    EXPECT_TRUE(eventually([&] { return weak.expired() && captured.use_count() == 1; }));
}

TEST_F(NetworkOfOurOwn, ToleratesThreadsThatStartAndStop) {
    if (!isInside())
        return runInside();
    std::atomic<bool> done = false;
    std::atomic<int> reports = 0;
    std::vector<std::thread> threads;
    const auto shared =
        Reachability::reachabilityWithAddress(QHostAddress(QStringLiteral("192.0.2.1")));
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&, life = std::chrono::milliseconds(10 + 40 * i)] {
            while (!done) {
                shared->reachabilityBlock = [&reports](Reachability *, ReachabilityFlags) {
                    ++reports;
                };
                shared->startNotifier();
                const auto own = Reachability::reachabilityWithAddress(
                    QHostAddress(QStringLiteral("192.0.2.2")));
                own->reachableBlock = [&reports](Reachability *) { ++reports; };
                own->startNotifier();
                std::this_thread::sleep_for(life);
                own->isReachable();
                own->stopNotifier();
                shared->stopNotifier();
            }
        });
    }
    EXPECT_TRUE(eventually([&] {
        for (const char *change : {"route add default via 10.9.0.2", "route del default"}) {
            tryIp(change);
            std::this_thread::sleep_for(std::chrono::milliseconds(40)); // longer than the settling
        }
        return reports > 10;
    }));
    done = true;
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_TRUE(eventually([] { return watcherWakeUps() == -1; }));
}

TEST_F(NetworkOfOurOwn, SaysWhenItCannotBeWatched) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs descriptors itself";
#endif
    if (!isInside())
        return runInside();
    const auto monitor =
        Reachability::reachabilityWithAddress(QHostAddress(QStringLiteral("10.9.0.2")));
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    rlimit none = before;
    none.rlim_cur = 3; // the standard ones
    setrlimit(RLIMIT_NOFILE, &none);
    EXPECT_FALSE(monitor->startNotifier());
    EXPECT_FALSE(monitor->isReachable());
    EXPECT_EQ(monitor.use_count(), 1);
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_TRUE(monitor->isReachable());
    EXPECT_TRUE(monitor->startNotifier());
    monitor->stopNotifier();
}
