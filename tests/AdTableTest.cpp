// SPDX-License-Identifier: Apache-2.0
#include "AdTable.h"
#include "AdKeys.h"
#include "Switches.h"
#include "tests/support/HeldDisk.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>

namespace velmora::test {

using adserver::Fault;

class AdTableTest : public LocalAdServer {
protected:
    /// Begins the next process run with a table that has not been loaded.
    void startRun() {
        table.reset();
        restartProcess();
        server.log().clear();
        table = std::make_shared<AdTable>();
    }

    /// Begins the next process run with these ads cached.
    void startRunWithCache(const QJsonArray &banners, const QJsonArray &videos) {
        for (const QJsonValue &ad : banners)
            table->cacheStorage().addBannerInfo(ad.toObject());
        for (const QJsonValue &ad : videos)
            table->cacheStorage().addVideoInfo(ad.toObject());
        startRun();
    }

    /// Loads the table and waits for the reply. Returns how often the completion was called.
    int loadAndWait() {
        int called = 0;
        table->load([&] { ++called; });
        EXPECT_TRUE(eventually([this] { return table->hasReply(); }));
        return called;
    }

    QString firstBanner() {
        const auto current = table->current();
        const QJsonArray ads = current ? current->value(kMainBannerKey).toArray() : QJsonArray();
        return ads.first().toObject().value(kBannerName).toString();
    }

    std::shared_ptr<AdTable> table = std::make_shared<AdTable>();
    SeededRandom random{11};
};

TEST_F(AdTableTest, OneRunSendsOneRequestWithExactlyThisBody) {
    serve({banner("one")});
    server.faults().set(TablePath, Fault::delay(100));
    int first = 0;
    int later = 0;
    table->load([&] { ++first; });
    table->load([&] { ++later; });
    ASSERT_TRUE(eventually([&] { return first > 0; }));
    const auto received = server.log().requests(TablePath);
    ASSERT_EQ(received.size(), 1);
    const QByteArray body = "{\"inner_id\" : \"mac.000000.mac-store\",\"language\" : \"EN\","
                            "\"placements\" : [ \"standard\",\"video\" ]}";
    EXPECT_EQ(received.first().body, body);
    EXPECT_EQ(received.first().header("Content-Length"), QByteArray::number(body.size()));
    EXPECT_TRUE(received.first().header("Content-Type").isEmpty());

    table->load([&] { ++later; });
    quietly(50);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(later, 0);
    EXPECT_EQ(server.log().count(TablePath), 1);
}

TEST_F(AdTableTest, ABrokenConnectionDoesNotRepeatTheRequest) {
    for (const Fault &fault : {Fault::reset(), Fault::close()}) {
        startRun();
        server.faults().set(TablePath, fault);
        EXPECT_EQ(loadAndWait(), 1);
        quietly(50);
        EXPECT_EQ(server.log().count(TablePath), 1);
        EXPECT_FALSE(table->current());
    }
}

TEST_F(AdTableTest, WithACompleteCacheTheCompletionIsCalledBeforeTheReplyAndNotForIt) {
    startRunWithCache({banner("old")}, {video("v")});
    serve({banner("new")}, {});
    server.faults().set(TablePath, Fault::delay(100));
    int called = 0;
    EXPECT_FALSE(table->isSettled());
    table->load([&] { ++called; });
    ASSERT_TRUE(eventually([&] { return called > 0; }));
    EXPECT_FALSE(table->hasReply());
    EXPECT_TRUE(table->isSettled());
    EXPECT_EQ(firstBanner(), QStringLiteral("old"));
    ASSERT_TRUE(eventually([this] { return table->hasReply(); }));
    EXPECT_EQ(called, 1);
    EXPECT_EQ(firstBanner(), QStringLiteral("new"));
}

TEST_F(AdTableTest, WithAnIncompleteCacheTheCompletionWaitsForTheReplyUnlessOffline) {
    const QJsonArray cached{banner("old")};
    startRunWithCache(cached, {});
    int called = 0;
    table->load([&] { ++called; });
    EXPECT_EQ(called, 0);
    EXPECT_FALSE(table->isSettled());
    ASSERT_TRUE(eventually([&] { return called == 1; }));
    EXPECT_TRUE(table->isSettled());

    startRun();
    goOffline();
    called = 0;
    table->load([&] { ++called; });
    ASSERT_TRUE(eventually([&] { return called == 1; }));
    EXPECT_EQ(table->draw(kMainBannerKey), cached.first().toObject());
    table->load([&] { ++called; });
    EXPECT_EQ(called, 2);
    quietly(50);
    EXPECT_EQ(server.log().count(TablePath), 0);
}

TEST_F(AdTableTest, WhileTheDiskIsSlowNothingIsDrawnAndTheReplyWaits) {
    for (const bool isComplete : {true, false}) {
        startRunWithCache({banner("old")}, isComplete ? QJsonArray{video("v")} : QJsonArray());
        table.reset();
        restartProcess();
        HeldDisk held;
        table = std::make_shared<AdTable>();
        serve({banner("new")}, {});
        int called = 0;
        int ready = 0;
        table->load([&] { ++called; });
        table->whenReady([&](const DrawableAds &) { ++ready; });
        ASSERT_TRUE(eventually([this] { return server.log().count(TablePath) == 1; }));
        quietly(50);
        EXPECT_FALSE(table->hasReply() || table->isSettled());
        EXPECT_FALSE(table->draw(kMainBannerKey));
        EXPECT_EQ(called + ready, 0);
        held.release();
        ASSERT_TRUE(eventually([this] { return table->hasReply(); }));
        EXPECT_EQ(called, 1);
        EXPECT_EQ(ready, 1);
        EXPECT_EQ(firstBanner(), QStringLiteral("new"));
        startRun();
        QDir(cachesFolder()).removeRecursively();
    }
}

TEST_F(AdTableTest, ARequestThatWasRefusedIsNotTheOneOfTheRun) {
    serve({banner("one")});
    Switches::setADSRemoved(true);
    bool isCalled = false;
    table->load([&isCalled] { isCalled = true; });
    quietly(100);
    EXPECT_FALSE(isCalled);
    EXPECT_FALSE(table->hasReply());
    EXPECT_EQ(server.log().count(), 0);
    Switches::setADSRemoved(false);
    // Asked again until the refused request has ended.
    EXPECT_TRUE(eventually([this] {
        table->load({});
        return table->hasReply();
    }));
    EXPECT_EQ(server.log().count(TablePath), 1);
    EXPECT_EQ(firstBanner(), QStringLiteral("one"));
}

} // namespace velmora::test
