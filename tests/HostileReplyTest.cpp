// SPDX-License-Identifier: Apache-2.0
#include "AdKeys.h"
#include "AdsDownloader.h"
#include "Switches.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestGif.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>

namespace velmora::test {

using adserver::Fault;

/// Unusable or malicious replies do no harm, and the log tells what was refused and why.
class HostileReplyTest : public LocalAdServer {
protected:
    static AdsDownloader &downloader() { return *AdsDownloader::sharedInstance(); }

    /// Begins a process run in which the ad server sends this reply.
    void startWith(const QByteArray &reply) {
        restartProcess();
        Switches::activateDebugMode();
        server.campaign().setReply(reply);
        downloader().startUpdateAllAds();
        ASSERT_TRUE(eventually([] { return downloader().isUpdateAdsCurrentSession(); }));
    }

    void startWith(const QJsonObject &reply) { startWith(QJsonDocument(reply).toJson()); }

    /// Draws banners until every usable ad has very likely been drawn, and returns their names.
    static std::vector<QString> drawMany() {
        std::vector<QString> names;
        for (int i = 0; i < 40; ++i) {
            bool called = false;
            downloader().downloadBannerWithComplitionBlock(
                [&](const BannerAd &, bool) { called = true; });
            EXPECT_TRUE(eventually([&] { return called; }));
            names.push_back(downloader().bannerInfo().value(kBannerName).toString());
        }
        return names;
    }

    /// The names of all files and folders beside the caches folder.
    static QStringList besideCaches() {
        return QDir(cachesFolder() + QStringLiteral("/.."))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    SeededRandom random{5};
};

TEST_F(HostileReplyTest, AReplyThatIsNotAnObjectLeavesNoTable) {
    const QByteArray notUtf8("{\"standard\":\"\xff\xfe\"}");
    for (const QByteArray &reply :
         {QByteArray(), QByteArray("null"), QByteArray("[]"), QByteArray("[{\"standard\":[]}]"),
          QByteArray("\"text\""), QByteArray("{\"standard\":["), QByteArray("<html>busy</html>"),
          notUtf8, QByteArray("\0\0", 2), QByteArray(2000, '['), QByteArray("\xff\xfe{\0}\0", 6)}) {
        startWith(reply);
        EXPECT_FALSE(downloader().replyJSON()) << reply.left(40).constData();
        EXPECT_TRUE(hasLogged("the ad server's reply was refused"));
    }
    server.faults().set(TablePath, Fault::reset());
    startWith(QByteArray("{}"));
    EXPECT_FALSE(downloader().replyJSON());
    EXPECT_TRUE(hasLogged("the ad server did not answer"));
    server.faults().set(TablePath, Fault::huge(40'000'000));
    startWith(QByteArray("{}"));
    EXPECT_FALSE(downloader().replyJSON());
}

TEST_F(HostileReplyTest, PlacementsAndElementsOfTheWrongTypeAreIgnored) {
    for (const QJsonValue &placement : {QJsonValue(5), QJsonValue(QStringLiteral("x")),
                                        QJsonValue(QJsonObject()), QJsonValue(true)}) {
        startWith(QJsonObject{{kMainBannerKey, placement}, {kMainVideoKey, placement}});
        drawMany();
        EXPECT_TRUE(downloader().bannerInfo().isEmpty());
        EXPECT_TRUE(hasLogged("placement \"standard\" refused: it is not an array"));
    }
    const QJsonObject good = banner("good");
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{5, QStringLiteral("ad"), QJsonValue::Null,
                                                      QJsonArray{good}, good}}});
    for (const QString &name : drawMany())
        EXPECT_EQ(name, QStringLiteral("good"));
    EXPECT_TRUE(hasLogged("ad 1 of \"standard\" refused: is not an object"));
}

TEST_F(HostileReplyTest, AdsWithUnsafeFieldsAreNeverDrawn) {
    QDir().mkpath(cachesFolder());
    const QStringList before = besideCaches();
    const QJsonObject good = banner("good");
    QJsonArray ads{good};
    const auto addBadAd = [&](const QString &key, const QJsonValue &value) {
        QJsonObject ad = banner(QStringLiteral("bad%1").arg(ads.size()), 1000);
        ad.insert(key, value);
        ads.append(ad);
    };
    addBadAd(kBannerImgURL, QStringLiteral("/../../../evil.gif/.."));
    addBadAd(kBannerImgURL, QStringLiteral("/..%2F..%2Fevil.gif"));
    addBadAd(kBannerImgURL, QStringLiteral("@evil.example/a.gif"));
    addBadAd(kBannerImgURL, QStringLiteral("/savedAds"));
    addBadAd(kBannerImgURL, 7);
    addBadAd(kBannerURL, QStringLiteral("file:///etc/passwd"));
    addBadAd(kBannerURL, QJsonObject());
    addBadAd(kBannerPriority, QJsonArray{1});
    startWith(QJsonObject{{kMainBannerKey, ads}, {kMainVideoKey, ads}});
    for (const QString &name : drawMany())
        EXPECT_EQ(name, QStringLiteral("good"));
    for (const char *reason :
         {"\"image_728x90\" has no file name", "\"image_728x90\" has the ad table's file name",
          "is not a path", "\"market_url\" is not a link", "\"priority\" is neither"})
        EXPECT_TRUE(hasLogged(reason)) << reason;
    EXPECT_EQ(besideCaches(), before);
    EXPECT_EQ(server.log().requests(QStringLiteral("/media/bad*")).size(), 0);
}

TEST_F(HostileReplyTest, AdsWithEmptyOrUnusualFieldsAreUsed) {
    const auto with = [&](const QString &key, const QJsonValue &value) {
        QJsonObject ad = banner("plain");
        ad.insert(key, value);
        return ad;
    };
    for (const QJsonObject &ad :
         {with(kBannerURL, QString()), with(kBannerURL, QStringLiteral(" \t\n")),
          with(kBannerURL, QJsonValue::Null), with(kBannerPriority, QJsonValue::Null)}) {
        startWith(QJsonObject{{kMainBannerKey, QJsonArray{ad, banner("next", 5)}}});
        downloader().downloadBannerWithComplitionBlock({});
        EXPECT_EQ(logged().filter(QStringLiteral("refused")), QStringList());
        EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().size(), 2);
    }

    // A picture of this name must not stand in for the lock file of the ad table.
    const QString path = QStringLiteral("/x/savedAds.lock");
    server.campaign().setMedia(path, gif({Qt::red}));
    const QJsonObject ad = with(kBannerImgURL, path);
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{ad}}});
    drawMany();
    EXPECT_EQ(downloader().bannerURL().fileName(), QStringLiteral("savedAds.lock"));
    waitForDisk();
    EXPECT_TRUE(AdsCacheInfoStorage::cacheInfo()->value(kMainBannerKey).toArray().contains(ad));
}

TEST_F(HostileReplyTest, AFileNameTooLongForTheDiskIsLogged) {
    QJsonObject ad = banner("long");
    const QString path = QLatin1Char('/') + QString(300, QLatin1Char('a'));
    server.campaign().setMedia(path, "a picture");
    ad.insert(kBannerImgURL, path);
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{ad}}});
    drawMany();
    EXPECT_TRUE(downloader().bannerURL().isEmpty());
    EXPECT_TRUE(eventually([] { return hasLogged("name too long"); }));
}

TEST_F(HostileReplyTest, LargeRepliesAreUsedUpToTheLimit) {
    QJsonArray ads;
    for (int i = 0; i < 4000; ++i)
        ads.append(banner(QStringLiteral("ad%1").arg(i)));
    const QByteArray reply = QJsonDocument(QJsonObject{{kMainBannerKey, ads}}).toJson();
    ASSERT_GT(reply.size(), 700'000);
    startWith(reply);
    EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().size(), 4000);

    for (int i = 4000; i <= AdReply::MostAds; ++i)
        ads.append(ads.first());
    startWith(QJsonObject{{kMainBannerKey, ads}});
    EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().size(), AdReply::MostAds);
    EXPECT_TRUE(hasLogged(QStringLiteral("\"standard\" has 10001 ads")));
}

} // namespace velmora::test
