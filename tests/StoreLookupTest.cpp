// SPDX-License-Identifier: Apache-2.0
#include "StoreLookup.h"
#include "ProcessRoot.h"
#include "SharedUrlSession.h"
#include "tests/support/LocalAdServer.h"

#include <thread>

namespace velmora::test {

class StoreLookupTest : public LocalAdServer {};

TEST_F(StoreLookupTest, NamesAreShortenedAndTheMainThreadIsRefused) {
    server.campaign().setLookupName(QStringLiteral("42"), QStringLiteral("Photo Editor - Filters"));
    const auto nameOf = [](const char *link, bool isWeb) {
        QString name;
        std::thread([&] { name = StoreLookup::shortName(QLatin1String(link), isWeb); }).join();
        return name;
    };
    SharedUrlSession::shared();
    EXPECT_EQ(nameOf("/app/ID42", false), QStringLiteral("PhotoEditor"));
    EXPECT_EQ(nameOf("/app/id42", true), QStringLiteral("Web PhotoEditor"));
    EXPECT_EQ(nameOf("/app/id99", false), QStringLiteral("null"));
    EXPECT_EQ(nameOf("/app/", true), QStringLiteral("Web null"));
    EXPECT_EQ(server.log().requests(QStringLiteral("/lookup*")).first().target,
              QByteArray("/lookup?id=42"));
    EXPECT_EQ(server.log().requests(QStringLiteral("/lookup*")).last().target,
              QByteArray("/lookup?id="));
    EXPECT_FALSE(StoreLookup::firstResult(baseUrl + QStringLiteral("/lookup?id=42")));
}

TEST_F(StoreLookupTest, TheProcessStateMayBeDroppedDuringLookUps) {
    for (int round = 0; round < 300; ++round) {
        SharedUrlSession::shared();
        std::vector<std::thread> lookUps;
        for (int i = 0; i < 4; ++i) {
            lookUps.emplace_back([] { StoreLookup::shortName(QStringLiteral("/app/id1"), false); });
        }
        // Every round drops the state at a later point of the look-ups.
        std::this_thread::sleep_for(std::chrono::microseconds(5 * round));
        ProcessRoot::drop();
        for (std::thread &lookUp : lookUps)
            lookUp.join();
    }
}

} // namespace velmora::test
