// SPDX-License-Identifier: Apache-2.0
#include "BannerLoader.h"
#include "AdKeys.h"
#include "AdTable.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>

namespace velmora::test {

using adserver::Fault;

class BannerLoaderTest : public LocalAdServer {
protected:
    void useBanners(const QJsonArray &ads) {
        table->setReply(AdReply::of(QJsonObject{{kMainBannerKey, ads}}));
    }

    /// Loads the next banner and waits for the completion.
    bool loadAndWait() {
        bool called = false;
        loader->loadNext([&](const BannerAd &, bool) { called = true; });
        return eventually([&] { return called; }, 3000);
    }

    std::shared_ptr<AdTable> table = std::make_shared<AdTable>();
    std::shared_ptr<BannerLoader> loader = std::make_shared<BannerLoader>(table);
    SeededRandom random{11};
};

TEST_F(BannerLoaderTest, AFailedDownloadLeavesTheReadyBannerUnchanged) {
    useBanners({banner("good")});
    ASSERT_TRUE(loadAndWait());
    const QUrl ready = loader->ready().file;

    useBanners({banner("bad")});
    for (const Fault &fault : {Fault::truncated(), Fault::reset(), Fault::wrongBody({})}) {
        server.faults().set(QStringLiteral("/media/bad.gif"), fault);
        const int before = server.log().count(QStringLiteral("/media/bad.gif"));
        std::optional<BannerAd> reported;
        loader->loadNext([&](const BannerAd &ad, bool hasFailed) {
            EXPECT_TRUE(hasFailed);
            reported = ad;
        });
        ASSERT_TRUE(eventually([&] { return reported.has_value(); }));
        EXPECT_GT(server.log().count(QStringLiteral("/media/bad.gif")), before);
        EXPECT_EQ(loader->drawnAd(), banner("bad"));
        EXPECT_EQ(reported->name, QStringLiteral("good"));
        EXPECT_EQ(reported->file, ready);
        EXPECT_TRUE(reported->link.path().endsWith(QStringLiteral("idgood")));
        EXPECT_EQ(loader->ready().file, ready);
        EXPECT_FALSE(QFile::exists(cachesFolder() + QStringLiteral("/bad.gif")));
    }
    server.faults().clear();
    EXPECT_TRUE(loadAndWait());
    EXPECT_NE(loader->ready().file, ready);
}

TEST_F(BannerLoaderTest, AnAdWithAnUnusablePictureIsDrawnOnce) {
    const QJsonObject bad = banner(QStringLiteral("bad"), 1000);
    server.faults().set(QStringLiteral("/media/bad.gif"),
                        Fault::statusCode(503, "<html>busy</html>"));
    useBanners({bad, banner(QStringLiteral("good"))});
    for (int i = 0; i < 8; ++i)
        ASSERT_TRUE(loadAndWait());
    EXPECT_EQ(loader->ready().name, QStringLiteral("good"));
    // Nor from another table, nor from the cached ads.
    table->cacheStorage().addBannerInfo(bad);
    useBanners({bad});
    EXPECT_FALSE(table->draw(kMainBannerKey));
    goOffline();
    EXPECT_EQ(table->draw(kMainBannerKey)->value(kBannerName).toString(), QStringLiteral("good"));
    EXPECT_EQ(server.log().count(QStringLiteral("/media/bad.gif")), 1);
}

TEST_F(BannerLoaderTest, ASlowPictureDoesNotHoldUpTheOthersForLongerThanATurn) {
    VirtualTime time;
    useBanners({banner(QStringLiteral("slow"))});
    server.faults().set(QStringLiteral("/media/slow.gif"), Fault::hang());
    loader->loadNext({});
    useBanners({banner(QStringLiteral("slow")), banner(QStringLiteral("quick"))});
    time.advance(14);
    loader->loadNext({});
    EXPECT_EQ(loader->drawnAd().value(kBannerName).toString(), QStringLiteral("slow"));
    time.advance(2);
    ASSERT_TRUE(loadAndWait());
    EXPECT_EQ(loader->ready().name, QStringLiteral("quick"));
    // The slow one is drawn again, but not asked for again.
    bool isLoaded = false;
    loader->loadNext([&](const BannerAd &, bool) { isLoaded = true; });
    EXPECT_FALSE(isLoaded);
    server.faults().clear();
    EXPECT_TRUE(eventually([&] { return isLoaded; }));
    EXPECT_EQ(loader->ready().name, QStringLiteral("slow"));
    EXPECT_EQ(server.log().count(QStringLiteral("/media/slow.gif")), 1);
}

TEST_F(BannerLoaderTest, CallsDuringADownloadGetItsResult) {
    useBanners({banner("slow")});
    QStringList results;
    const auto loadAs = [&](const char *caller) {
        loader->loadNext([&results, caller](const BannerAd &ad, bool hasFailed) {
            const QString result = hasFailed ? QStringLiteral("failed") : ad.name;
            results.append(QStringLiteral("%1 %2").arg(QLatin1String(caller), result));
        });
    };
    for (const bool fails : {true, false}) {
        results.clear();
        server.faults().set(QStringLiteral("/media/slow.gif"),
                            fails ? Fault::truncated().after(80) : Fault::delay(80));
        loadAs("first");
        loader->loadNext({});
        // Another table takes effect at the next draw only.
        useBanners({banner(fails ? QStringLiteral("slow") : QStringLiteral("next"))});
        loadAs("second");
        EXPECT_TRUE(results.isEmpty());
        ASSERT_TRUE(eventually([&] { return results.size() == 2; }));
        EXPECT_EQ(
            results,
            fails ? (QStringList{QStringLiteral("first failed"), QStringLiteral("second failed")})
                  : (QStringList{QStringLiteral("first slow"), QStringLiteral("second slow")}));
    }
    EXPECT_EQ(server.log().count(QStringLiteral("/media/slow.gif")), 2);
    EXPECT_EQ(server.log().count(QStringLiteral("/media/next.gif")), 0);
    EXPECT_TRUE(loadAndWait());
    EXPECT_EQ(loader->ready().name, QStringLiteral("next"));
}

TEST_F(BannerLoaderTest, AnAdWithoutAPictureFailsUnlessAFileHasTheNullName) {
    QJsonObject ad = banner("without");
    ad.remove(kBannerImgURL);
    useBanners({ad});
    std::optional<bool> failed;
    const auto note = [&](const BannerAd &, bool hasFailed) { failed = hasFailed; };
    loader->loadNext(note);
    EXPECT_EQ(failed, true);
    EXPECT_TRUE(loader->ready().file.isEmpty());

    putInCaches("(null)", "left over");
    loader->loadNext(note);
    EXPECT_EQ(failed, false);
    EXPECT_TRUE(loader->ready().file.path().contains(MissingNameMark));
}

} // namespace velmora::test
