// SPDX-License-Identifier: Apache-2.0
#include "MachineIdentifier.h"
#include "tests/support/NetworkNamespace.h"

namespace velmora::test {

TEST(ReachabilityTest, QueriesFollowTheFlags) {
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

TEST(ReachabilityTest, AUrlsAddressAndPortAreWatchedAndBadTargetsRefused) {
    struct Row {
        const char *url;
        const char *host;
        int port;
    };
    const Row rows[] = {
        {"https://127.0.0.1/a", "127.0.0.1", 443},  {"http://127.0.0.1", "127.0.0.1", 80},
        {"ftp://127.0.0.1", "127.0.0.1", 80},       {"https://127.0.0.1:8443", "127.0.0.1", 8443},
        {"https://localhost:8443", "localhost", 0},
    };
    for (const Row &row : rows) {
        const auto monitor = Reachability::reachabilityWithURL(QUrl(QLatin1String(row.url)));
        ASSERT_TRUE(monitor) << row.url;
        EXPECT_EQ(monitor->targetHost(), QLatin1String(row.host)) << row.url;
        EXPECT_EQ(monitor->targetPort(), row.port) << row.url;
    }
    for (const char *text : {"1.2.3", "1.2.3.4.5", "256.1.1.1", "::1", "", "a.b.c.d", "1.2.3.4 "})
        EXPECT_FALSE(Reachability::isIpAddress(QLatin1String(text))) << text;
    EXPECT_FALSE(Reachability::isIpAddress(QStringLiteral("1.2.3.4") + QChar::Null));

    EXPECT_FALSE(Reachability::reachabilityWithURL(QUrl(QStringLiteral("file:///etc/hosts"))));
    for (const char *text : {"127.0.0.1", "fe80::1%lo", "::1", "0.0.0.0"}) {
        const auto monitor = Reachability::reachabilityWithAddress(QLatin1String(text), 80);
        ASSERT_TRUE(monitor) << text;
        EXPECT_EQ(monitor->targetHost(), QLatin1String(text));
    }
    for (const char *text : {"", "localhost", "1.2.3.4.5", "1.2.3", "1.2.3.4%lo", ":::1"})
        EXPECT_FALSE(Reachability::reachabilityWithAddress(QLatin1String(text))) << text;
    EXPECT_FALSE(Reachability::reachabilityWithHostName(QString(300, QLatin1Char('a'))));
    EXPECT_FALSE(Reachability::reachabilityWithHostname(QStringLiteral("a") + QChar::Null));
}

TEST(SystemUuidTest, TheMachineIdentifierIsUpperCaseUuidText) {
    EXPECT_EQ(MachineIdentifier::uuidText("3d1219c7c4c5404aaa1f6d2a48adfda4\n"),
              QStringLiteral("3D1219C7-C4C5-404A-AA1F-6D2A48ADFDA4"));
    EXPECT_EQ(MachineIdentifier::uuidText("3d1219c7-c4c5-404a-aa1f-6d2a48adfda4"),
              QStringLiteral("3D1219C7-C4C5-404A-AA1F-6D2A48ADFDA4"));
    EXPECT_EQ(MachineIdentifier::uuidText(""), QString());
    EXPECT_EQ(AdsMacHelper::getSystemUUID(),
              MachineIdentifier::uuidText(QSysInfo::machineUniqueId()));
}

} // namespace velmora::test
