// SPDX-License-Identifier: Apache-2.0
#include "tests/support/NetworkNamespace.h"

namespace velmora::test {

TEST_F(NetworkNamespaceTest, QueriesFollowRoutesLinksAndAddresses) {
    if (!isInside())
        return runInside();
    EXPECT_EQ(query("127.0.0.1"), ReachabilityFlagReachable | ReachabilityFlagIsLocalAddress |
                                      ReachabilityFlagIsDirect);
    EXPECT_EQ(query("10.9.0.1"), ReachabilityFlagReachable | ReachabilityFlagIsLocalAddress |
                                     ReachabilityFlagIsDirect);
    EXPECT_EQ(query("10.9.0.2"), ReachabilityFlagReachable | ReachabilityFlagIsDirect);
    EXPECT_EQ(query("::ffff:10.9.0.2"), ReachabilityFlagReachable | ReachabilityFlagIsDirect);
    EXPECT_EQ(query("fd09::2"), ReachabilityFlagReachable | ReachabilityFlagIsDirect);
    EXPECT_EQ(query("192.0.2.1"), 0u);
    EXPECT_EQ(query("fe80::1%nowhere") & ReachabilityFlagIsLocalAddress, 0u);
    EXPECT_EQ(RouteMonitor::query({}), 0u);

    const auto internet = Reachability::reachabilityForInternetConnection();
    const auto local = Reachability::reachabilityForLocalWiFi();
    EXPECT_EQ(internet->currentReachabilityFlags(), QStringLiteral("X- -------"));
    EXPECT_EQ(internet->currentReachabilityString(), QStringLiteral("No Connection"));
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    EXPECT_TRUE(local->isReachable());

    ip("route add default via 10.9.0.2");
    EXPECT_EQ(internet->reachabilityFlags(), ReachabilityFlags(ReachabilityFlagReachable));
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatusWiFi);
    EXPECT_EQ(internet->currentReachabilityString(), QStringLiteral("WiFi"));
    EXPECT_FALSE(internet->isReachableViaWWAN());
    EXPECT_TRUE(AdsMacHelper::isInternetConnection());
    EXPECT_TRUE(internet->description().contains(QLatin1String("(XR -------)>")));
    EXPECT_EQ(query("192.0.2.1"), ReachabilityFlags(ReachabilityFlagReachable));

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

TEST_F(NetworkNamespaceTest, EveryChangeIsReportedOnceToEachMonitor) {
    if (!isInside())
        return runInside();
    const auto internet = Reachability::reachabilityForInternetConnection();
    const auto neighbour = Reachability::reachabilityWithAddress(QStringLiteral("10.9.0.2"));
    Recorder ofInternet(*internet);
    Recorder ofNeighbour(*neighbour);
    ASSERT_TRUE(internet->startNotifier());
    ASSERT_TRUE(neighbour->startNotifier());

    struct Row {
        const char *command;
        bool internetAfter;
        bool neighbourAfter;
    };
    // A default route through a gateway that is unreachable counts as reachable.
    const Row rows[] = {
        {"route add default via 10.9.0.2", true, true},
        {"link set far down", false, false},
        {"link set far up", true, true},
        {"route add unreachable 10.9.0.2", true, false},
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
        ip(row.command);
        internetChanges += row.internetAfter != internetBefore;
        neighbourChanges += row.neighbourAfter != neighbourBefore;
        EXPECT_TRUE(eventually([&] {
            return ofInternet.notified == internetChanges &&
                   ofNeighbour.notified == neighbourChanges;
        })) << row.command
            << ": " << ofInternet.notified << " of " << internetChanges << ", "
            << ofNeighbour.notified << " of " << neighbourChanges;
        EXPECT_EQ((ofInternet.reports->last & ReachabilityFlagReachable) != 0, row.internetAfter)
            << row.command;
        EXPECT_EQ(internet->isReachable(), row.internetAfter) << row.command;
        EXPECT_EQ(neighbour->isReachable(), row.neighbourAfter) << row.command;
        internetBefore = row.internetAfter;
        neighbourBefore = row.neighbourAfter;
    }
    EXPECT_EQ(ofInternet.reports->all, internetChanges);
    EXPECT_EQ(ofInternet.reports->reachable + ofInternet.reports->unreachable, internetChanges);
    EXPECT_EQ(ofNeighbour.reports->reachable + ofNeighbour.reports->unreachable, neighbourChanges);

    // The watching thread sleeps while nothing changes.
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

TEST_F(NetworkNamespaceTest, APointToPointLinkIsReachableOnceItsDeviceIsOpen) {
    if (!isInside())
        return runInside();
    if (!tryIp("tuntap add dev tunnel mode tun"))
        GTEST_SKIP() << "no tun devices here";
    ip("addr add 10.7.0.1 peer 10.7.0.2 dev tunnel");
    ip("link set tunnel addrgenmode none");
    ip("link set tunnel up");
    ip("route add default dev tunnel");
    const ReachabilityFlags unopened =
        ReachabilityFlagReachable | ReachabilityFlagTransientConnection |
        ReachabilityFlagConnectionRequired | ReachabilityFlagIsDirect;
    EXPECT_EQ(query("10.7.0.2"), unopened);
    EXPECT_EQ(query("0.0.0.0"), unopened);
    EXPECT_FALSE(AdsMacHelper::isInternetConnection());
    const auto internet = Reachability::reachabilityForInternetConnection();
    EXPECT_TRUE(internet->connectionRequired() && internet->isConnectionRequired());
    EXPECT_FALSE(internet->isReachable());
    EXPECT_TRUE(internet->isReachableViaWiFi());
    EXPECT_EQ(internet->currentReachabilityStatus(), NetworkStatusNone);
    Recorder recorder(*internet);
    ASSERT_TRUE(internet->startNotifier());

    const int device = open("/dev/net/tun", O_RDWR | O_CLOEXEC);
    ifreq request{};
    qstrncpy(request.ifr_name, "tunnel", sizeof request.ifr_name);
    request.ifr_flags = IFF_TUN;
    ASSERT_EQ(ioctl(device, TUNSETIFF, &request), 0);
    EXPECT_TRUE(eventually([&] { return recorder.reports->all == 1; }));
    EXPECT_EQ(recorder.reports->reachable, 1);
    EXPECT_EQ(recorder.reports->last, ReachabilityFlagReachable |
                                          ReachabilityFlagTransientConnection |
                                          ReachabilityFlagIsDirect);
    EXPECT_TRUE(AdsMacHelper::isInternetConnection());
    close(device);
    EXPECT_TRUE(eventually([&] { return recorder.reports->unreachable == 1; }));
    internet->stopNotifier();
}

TEST_F(NetworkNamespaceTest, AMonitorOfAHostNameFollowsItsAddress) {
    if (!isInside())
        return runInside();
    FileInstead hosts("/etc/hosts");
    hosts.write("10.9.0.2 neighbour.test\n");
    const auto monitor = Reachability::reachabilityWithHostName(QStringLiteral("neighbour.test"));
    ASSERT_TRUE(monitor);
    EXPECT_TRUE(eventually([&] { return monitor->isReachable(); }));
    Recorder recorder(*monitor);
    ASSERT_TRUE(monitor->startNotifier());
    ip("link set far down");
    EXPECT_TRUE(eventually([&] { return recorder.reports->unreachable == 1; }));
    hosts.write("192.0.2.1 neighbour.test\n"); // only the default route leads there
    ip("link set far up");
    ip("route add default via 10.9.0.2");
    EXPECT_TRUE(eventually([&] { return recorder.reports->last == ReachabilityFlagReachable; }));
    monitor->stopNotifier();

    // This look-up gets no answer here, and destroying the monitor does not wait for it.
    auto unknown = Reachability::reachabilityWithHostName(QStringLiteral("host.invalid"));
    ASSERT_TRUE(unknown && unknown->startNotifier());
    EXPECT_FALSE(unknown->isReachable());
    unknown->stopNotifier();
    unknown.reset();
}

TEST_F(NetworkNamespaceTest, AMonitorMayDestroyItselfInItsCallback) {
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

TEST_F(NetworkNamespaceTest, ThreadsMayStartAndStopMonitorsAtOnce) {
    if (!isInside())
        return runInside();
    std::atomic<bool> done = false;
    std::atomic<int> reports = 0;
    std::vector<std::thread> threads;
    const auto shared = Reachability::reachabilityWithAddress(QStringLiteral("192.0.2.1"));
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&, life = std::chrono::milliseconds(10 + 40 * i)] {
            while (!done) {
                shared->reachabilityBlock = [&reports](Reachability *, ReachabilityFlags) {
                    ++reports;
                };
                shared->startNotifier();
                const auto own = Reachability::reachabilityWithAddress(QStringLiteral("192.0.2.2"));
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
            std::this_thread::sleep_for(
                std::chrono::milliseconds(40)); // changes closer together count as one
        }
        return reports > 10;
    }));
    done = true;
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_TRUE(eventually([] { return watcherWakeUps() == -1; }));
}

TEST_F(NetworkNamespaceTest, WithoutDescriptorsStartNotifierReturnsFalse) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer needs file descriptors itself";
#endif
    if (!isInside())
        return runInside();
    const auto monitor = Reachability::reachabilityWithAddress(QStringLiteral("10.9.0.2"));
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    rlimit none = before;
    none.rlim_cur = 3; // standard input, output and error only
    setrlimit(RLIMIT_NOFILE, &none);
    EXPECT_FALSE(monitor->startNotifier());
    EXPECT_FALSE(monitor->isReachable());
    EXPECT_EQ(monitor.use_count(), 1);
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_TRUE(monitor->isReachable());
    EXPECT_TRUE(monitor->startNotifier());
    monitor->stopNotifier();
}

} // namespace velmora::test
