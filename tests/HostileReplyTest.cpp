// SPDX-License-Identifier: Apache-2.0
#include "AdKeys.h"
#include "AdsDownloader.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "Switches.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>

namespace velmora::test {

using adserver::Fault;

/// Whatever the server answers, the framework stays whole and says what it refused.
class HostileReplyTest : public LocalAdServer {
protected:
    static AdsDownloader &downloader() { return *AdsDownloader::sharedInstance(); }

    void startWith(const QByteArray &reply) {
        restartProcess();
        Switches::activateDebugMode();
        server.campaign().setReply(reply);
        downloader().startUpdateAllAds();
        ASSERT_TRUE(eventually([] { return downloader().isUpdateAdsCurrentSession(); }));
    }

    void startWith(const QJsonObject &reply) { startWith(QJsonDocument(reply).toJson()); }

    static std::vector<QString> drawMany() {
        std::vector<QString> names;
        for (int i = 0; i < 40; ++i) {
            downloader().downloadBannerWithComplitionBlock({});
            quietly(1);
            names.push_back(downloader().bannerInfo().value(kBannerName).toString());
        }
        return names;
    }

    /// Everything that lies beside the caches folder, which nothing may touch.
    static QStringList outside() {
        return QDir(cachesFolder() + QStringLiteral("/.."))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    SeededRandom random{5};
};

TEST_F(HostileReplyTest, WhatIsNoObjectLeavesNoTableAndIsNotAskedForAgain) {
    const QList<QByteArray> replies{"",
                                    "null",
                                    "[]",
                                    "[{\"standard\":[]}]",
                                    "\"text\"",
                                    "{\"standard\":[",
                                    "<html>busy</html>",
                                    QByteArray("{\"standard\":\"\xff\xfe\"}"),
                                    QByteArray("\0\0", 2),
                                    QByteArray(2000, '['),
                                    QByteArray("\xff\xfe{\0}\0", 6)};
    for (const QByteArray &reply : replies) {
        startWith(reply);
        EXPECT_FALSE(downloader().replyJSON()) << reply.left(40).constData();
        EXPECT_TRUE(hasLogged(QStringLiteral("the ad server's reply was refused")));
    }
    server.faults().set(TablePath, Fault::reset());
    startWith(QByteArray("{}"));
    EXPECT_FALSE(downloader().replyJSON());
    EXPECT_TRUE(hasLogged(QStringLiteral("the ad server did not answer")));
    server.faults().set(TablePath, Fault::huge(40'000'000));
    startWith(QByteArray("{}"));
    EXPECT_FALSE(downloader().replyJSON());
}

TEST_F(HostileReplyTest, PlacementsAndElementsOfTheWrongTypeAreAsIfAbsent) {
    for (const QJsonValue &placement : {QJsonValue(5), QJsonValue(QStringLiteral("x")),
                                        QJsonValue(QJsonObject()), QJsonValue(true)}) {
        startWith(QJsonObject{{kMainBannerKey, placement}, {kMainVideoKey, placement}});
        drawMany();
        EXPECT_TRUE(downloader().bannerInfo().isEmpty());
        EXPECT_TRUE(
            hasLogged(QStringLiteral("placement \"standard\" refused: it is not an array")));
    }
    const QJsonObject good = banner(QStringLiteral("good"));
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{5, QStringLiteral("ad"), QJsonValue::Null,
                                                      QJsonArray{good}, good}}});
    for (const QString &name : drawMany())
        EXPECT_EQ(name, QStringLiteral("good"));
    EXPECT_TRUE(hasLogged(QStringLiteral("ad 1 of \"standard\" refused: is not an object")));
}

TEST_F(HostileReplyTest, AdsWithHostileFieldsAreNeverDrawn) {
    QDir().mkpath(cachesFolder());
    const QStringList before = outside();
    const QJsonObject good = banner(QStringLiteral("good"));
    QJsonArray ads{good};
    const auto spoilt = [&](const QString &key, const QJsonValue &value) {
        QJsonObject ad = banner(QStringLiteral("bad%1").arg(ads.size()), 1000);
        ad.insert(key, value);
        ads.append(ad);
    };
    spoilt(kBannerImgURL, QStringLiteral("/../../../evil.gif/.."));
    spoilt(kBannerImgURL, QStringLiteral("/..%2F..%2Fevil.gif"));
    spoilt(kBannerImgURL, QStringLiteral("@evil.example/a.gif"));
    spoilt(kBannerImgURL, QStringLiteral("/savedAds"));
    spoilt(kBannerImgURL, 7);
    spoilt(kBannerURL, QStringLiteral("file:///etc/passwd"));
    spoilt(kBannerURL, QJsonObject());
    spoilt(kBannerPriority, QJsonArray{1});
    startWith(QJsonObject{{kMainBannerKey, ads}, {kMainVideoKey, ads}});
    for (const QString &name : drawMany())
        EXPECT_EQ(name, QStringLiteral("good"));
    for (const char *reason :
         {"\"image_728x90\" has no file name", "\"image_728x90\" has the ad table's file name",
          "is not a path", "\"market_url\" is not a link", "\"priority\" is neither"})
        EXPECT_TRUE(hasLogged(QLatin1String(reason))) << reason;
    EXPECT_EQ(outside(), before);
    EXPECT_EQ(server.log().requests(QStringLiteral("/media/bad*")).size(), 0);
}

TEST_F(HostileReplyTest, WhatIsMerelyEmptyOrOddDisqualifiesNoAd) {
    const auto with = [&](const QString &key, const QJsonValue &value) {
        QJsonObject ad = banner(QStringLiteral("plain"));
        ad.insert(key, value);
        return ad;
    };
    for (const QJsonObject &ad :
         {with(kBannerURL, QString()), with(kBannerURL, QStringLiteral(" \t\n")),
          with(kBannerURL, QJsonValue::Null), with(kBannerPriority, QJsonValue::Null)}) {
        // An ad without a weight takes the weight of the next, as ever.
        startWith(QJsonObject{{kMainBannerKey, QJsonArray{ad, banner(QStringLiteral("next"), 5)}}});
        downloader().downloadBannerWithComplitionBlock({});
        EXPECT_EQ(logged().filter(QStringLiteral("refused")), QStringList());
        EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().size(), 2);
    }

    // The lock of the table's file is in nobody's way.
    const QString path = QStringLiteral("/x/savedAds.lock");
    server.campaign().setMedia(path, "a picture");
    const QJsonObject ad = with(kBannerImgURL, path);
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{ad}}});
    drawMany();
    EXPECT_EQ(downloader().bannerURL().fileName(), QStringLiteral("savedAds.lock"));
    EXPECT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
    EXPECT_TRUE(AdsCacheInfoStorage::cacheInfo()->value(kMainBannerKey).toArray().contains(ad));
    EXPECT_FALSE(hasLogged(QStringLiteral("without its lock")));
    EXPECT_EQ(QFileInfo(downloader().bannerURL().toLocalFile()).size(), 9);
}

TEST_F(HostileReplyTest, ANameTooLongForTheDiskIsTheDisksToRefuse) {
    QJsonObject ad = banner(QStringLiteral("long"));
    const QString path = QLatin1Char('/') + QString(300, QLatin1Char('a'));
    server.campaign().setMedia(path, "a picture");
    ad.insert(kBannerImgURL, path);
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{ad}}});
    drawMany();
    EXPECT_TRUE(downloader().bannerURL().isEmpty());
    EXPECT_TRUE(eventually([] { return hasLogged(QStringLiteral("name too long")); }));
}

TEST_F(HostileReplyTest, TheTableFileSurvivesAnAdThatNamesIt) {
    const QJsonObject good = banner(QStringLiteral("good"));
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{good}}});
    drawMany();
    server.campaign().setMedia(QStringLiteral("/x/savedAds"), "evil");
    QJsonObject thief = banner(QStringLiteral("thief"));
    thief.insert(kBannerImgURL, QStringLiteral("/x/savedAds"));
    QFile::remove(cachesFolder() + QStringLiteral("/good.gif"));
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{thief}}});
    drawMany();
    EXPECT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
    EXPECT_EQ(AdsCacheInfoStorage::cacheInfo()->value(kMainBannerKey).toArray(), QJsonArray{good});
}

TEST_F(HostileReplyTest, AnErrorPageIsStoredUnderTheMediasNameAndAFolderIsNot) {
    startWith(QJsonObject{{kMainBannerKey, QJsonArray{banner(QStringLiteral("page"))}}});
    server.faults().set(QStringLiteral("/media/page.gif"),
                        Fault::statusCode(404, "<html>none</html>"));
    downloader().downloadBannerWithComplitionBlock({});
    EXPECT_TRUE(eventually([] { return !downloader().bannerURL().isEmpty(); }));
    EXPECT_EQ(QFile(cachesFolder() + QStringLiteral("/page.gif")).size(), 17);

    QDir().mkpath(cachesFolder() + QStringLiteral("/folder.gif"));
    downloader().setReplyJSON(
        QJsonObject{{kMainBannerKey, QJsonArray{banner(QStringLiteral("folder"))}}});
    bool failed = false;
    downloader().downloadBannerWithComplitionBlock(
        [&](const BannerAd &, bool hasFailed) { failed = hasFailed; });
    EXPECT_TRUE(failed);
    EXPECT_TRUE(hasLogged(QStringLiteral("a folder has its name")));
}

TEST_F(HostileReplyTest, LargeAndOddButValidRepliesAreUsed) {
    QJsonArray ads;
    for (int i = 0; i < 4000; ++i)
        ads.append(banner(QStringLiteral("ad%1").arg(i)));
    QByteArray reply = QJsonDocument(QJsonObject{{kMainBannerKey, ads}}).toJson();
    ASSERT_GT(reply.size(), 700'000);
    startWith(reply);
    EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().size(), 4000);

    // Of duplicate keys one is taken, and text may hold anything JSON can say.
    reply = R"({"standard":[],"standard":[{"name":"a\u0000b\ud83d\ude00","priority":"1",
                "image_728x90":"/media/ad1.gif"}],"other":[1e999]})";
    startWith(reply);
    drawMany();
    SUCCEED();
}

} // namespace velmora::test
