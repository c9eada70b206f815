// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"
#include "AdKeys.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"
#include "Switches.h"
#include "tests/support/ChildTest.h"
#include "tests/support/HostName.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <thread>

namespace velmora::test {

using adserver::Fault;

namespace {

/// Notes when it is told that ad data is ready.
class Listener : public DownloadDelegate {
public:
    Listener(QStringList &notes, const QString &name) : m_notes(notes), m_name(name) {}
    void endDownloadСonfiguration() override {
        m_notes.append(m_name);
        if (action)
            action();
    }
    bool isGone() const override { return gone; }

    std::function<void()> action;
    bool gone = false;

private:
    QStringList &m_notes;
    QString m_name;
};

} // namespace

class AdsDownloaderTest : public LocalAdServer {
protected:
    static AdsDownloader &downloader() { return *AdsDownloader::sharedInstance(); }

    /// Points the framework to an unreachable network.
    void goOffline() {
        Deployment values = deployment();
        // No address: nothing is reachable.
        values.reachabilityProbe = QStringLiteral("none");
        useDeployment(values);
    }

    static int runCycle() {
        int called = 0;
        downloader().downloadJSONWithComplitionBlock([&] { ++called; });
        eventually([] { return downloader().isUpdateAdsCurrentSession(); });
        return called;
    }

    /// Fills the caches as one online run with these ads does.
    void fillCache(const QJsonArray &banners, const QJsonArray &videos) {
        serve(banners, videos);
        runCycle();
        for (const QJsonValue &ad : banners)
            downloader().cacheStorage().addBannerInfo(ad.toObject());
        for (const QJsonValue &ad : videos)
            downloader().cacheStorage().addVideoInfo(ad.toObject());
        restartProcess();
        server.log().clear();
    }

    static bool pullBanner() {
        bool called = false;
        downloader().downloadBannerWithComplitionBlock(
            [&](const BannerAd &, bool) { called = true; });
        return eventually([&] { return called; }, 3000);
    }

    QStringList notes;
    SeededRandom random{11};
};

TEST_F(AdsDownloaderTest, AsksOncePerRunWithExactlyThisBody) {
    serve({banner(QStringLiteral("one"))});
    EXPECT_EQ(runCycle(), 1);
    const auto received = server.log().requests(TablePath);
    ASSERT_EQ(received.size(), 1);
    const QByteArray body = "{\"inner_id\" : \"mac.000000.mac-store\",\"language\" : \"EN\","
                            "\"placements\" : [ \"standard\",\"video\" ]}";
    EXPECT_EQ(received.first().body, body);
    EXPECT_EQ(received.first().header("Content-Length"), QByteArray::number(body.size()));
    EXPECT_TRUE(received.first().header("Content-Type").isEmpty());

    int called = 0;
    downloader().downloadJSONWithComplitionBlock([&] { ++called; });
    quietly(50);
    EXPECT_EQ(called, 0);
    EXPECT_EQ(server.log().count(TablePath), 1);
}

TEST_F(AdsDownloaderTest, ASecondCallWhileTheRequestRunsDoesNothing) {
    server.faults().set(TablePath, Fault::delay(150));
    int first = 0;
    int second = 0;
    downloader().downloadJSONWithComplitionBlock([&] { ++first; });
    downloader().downloadJSONWithComplitionBlock([&] { ++second; });
    ASSERT_TRUE(eventually([&] { return first == 1; }));
    quietly(50);
    EXPECT_EQ(second, 0);
    EXPECT_EQ(server.log().count(TablePath), 1);
}

TEST_F(AdsDownloaderTest, AConnectionThatBreaksIsNoReasonToAskTwice) {
    for (const Fault &fault : {Fault::reset(), Fault::close()}) {
        restartProcess();
        server.log().clear();
        server.faults().set(TablePath, fault);
        EXPECT_EQ(runCycle(), 1);
        quietly(50);
        EXPECT_EQ(server.log().count(TablePath), 1);
        EXPECT_FALSE(downloader().replyJSON());
    }
}

TEST_F(AdsDownloaderTest, ACompleteCacheCallsAtOnceAndTheReplyOnlyReplacesTheTable) {
    fillCache({banner(QStringLiteral("old"))}, {video(QStringLiteral("v"))});
    serve({banner(QStringLiteral("new"))}, {});
    int called = 0;
    downloader().downloadJSONWithComplitionBlock([&] { ++called; });
    EXPECT_EQ(called, 1);
    EXPECT_TRUE(downloader().isShowBannersFromCache());
    EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().first().toObject(),
              banner(QStringLiteral("old")));
    ASSERT_TRUE(eventually([&] { return downloader().isUpdateAdsCurrentSession(); }));
    EXPECT_EQ(called, 1);
    EXPECT_EQ(downloader().replyJSON()->value(kMainBannerKey).toArray().first().toObject(),
              banner(QStringLiteral("new")));
}

TEST_F(AdsDownloaderTest, AnIncompleteCacheWaitsForTheReplyUnlessOffline) {
    fillCache({banner(QStringLiteral("old"))}, {});
    int called = 0;
    downloader().downloadJSONWithComplitionBlock([&] { ++called; });
    EXPECT_EQ(called, 0);
    ASSERT_TRUE(eventually([&] { return called == 1; }));

    restartProcess();
    server.log().clear();
    goOffline();
    called = 0;
    downloader().downloadJSONWithComplitionBlock([&] { ++called; });
    EXPECT_EQ(called, 1);
    EXPECT_TRUE(pullBanner());
    EXPECT_EQ(downloader().bannerInfo().value(kBannerName).toString(), QStringLiteral("old"));
    quietly(50);
    EXPECT_EQ(server.log().count(TablePath), 0);
}

TEST_F(AdsDownloaderTest, TheCachesFollowTheNameThatTheHostSetsLater) {
    const HostName name;
    HostName::set(QStringLiteral("later"));
    fillCache({banner(QStringLiteral("known"))}, {});
    HostName::set(QStringLiteral("host"));
    serve({banner(QStringLiteral("fresh"))});
    downloader();
    HostName::set(QStringLiteral("later"));
    runCycle();
    ASSERT_TRUE(pullBanner());
    EXPECT_EQ(downloader().bannerURL().toLocalFile(),
              cachesFolder() + QStringLiteral("/fresh.gif"));
    restartProcess();
    const auto known = [] {
        QStringList names;
        const QJsonArray ads =
            downloader().cacheStorage().infoDictionary().value(kMainBannerKey).toArray();
        for (const QJsonValue &ad : ads)
            names.append(ad.toObject().value(kBannerName).toString());
        return names;
    };
    EXPECT_EQ(known(), (QStringList{QStringLiteral("known"), QStringLiteral("fresh")}));
    HostName::set(QStringLiteral("host"));
    EXPECT_TRUE(known().isEmpty());
    EXPECT_FALSE(QFile::exists(cachesFolder() + QStringLiteral("/fresh.gif")));
    HostName::set(QStringLiteral("later"));
    QDir(cachesFolder()).removeRecursively();
}

/// In a process without an application object.
TEST(UnnamedHostTest, DISABLED_HasNoCachesAndNoMedia) {
    const QString folder = qEnvironmentVariable("VELMORA_TEST_UNNAMED");
    ASSERT_FALSE(folder.isEmpty());
    static QStringList lines;
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &line) { lines.append(line); });
    Switches::activateDebugMode();
    AdsDownloader &downloader = *AdsDownloader::sharedInstance();
    downloader.startUpdateAllAds();
    QUrl file(QStringLiteral("unset"));
    EXPECT_FALSE(downloader.downloadDataToCacheDirectoryFromURL(
        QUrl(QStringLiteral("https://127.0.0.1:1/a.gif")), [&](const QUrl &url) { file = url; }));
    EXPECT_TRUE(file.isEmpty());
    downloader.cacheStorage().addBannerInfo({{kBannerName, QStringLiteral("one")}});
    EXPECT_EQ(lines.filter(QStringLiteral("no name yet")).size(), 2);
    ProcessRoot::drop();
    const QStringList files = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    EXPECT_TRUE(files.isEmpty()) << qPrintable(files.join(QLatin1Char(' ')));
    qInstallMessageHandler(nullptr);
    sayPartDone();
}

/// In a process that makes its application object late.
TEST(UnnamedHostTest, DISABLED_AsksTheServerOnceItHasAnApplicationObject) {
    adserver::AdServer server;
    server.campaign().setReply("{}");
    Deployment deployment = Deployment::builtIn();
    deployment.acsURL = server.start();
    deployment.adServerAuthorities = server.caPem();
    deployment.reachabilityProbe = QStringLiteral("127.0.0.1");
    Deployment::replace(deployment);
    AdsDownloader::sharedInstance()->startUpdateAllAds();
    int count = 1;
    char name[] = "host";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    EXPECT_TRUE(
        eventually([] { return AdsDownloader::sharedInstance()->isUpdateAdsCurrentSession(); }));
    EXPECT_EQ(server.log().count(TablePath), 1);
    sayPartDone();
}

TEST(DownloaderWithoutANameTest, CachesNothingAndAsksOnceThereIsAnApplication) {
    for (const char *test :
         {"HasNoCachesAndNoMedia", "AsksTheServerOnceItHasAnApplicationObject"}) {
        const QTemporaryDir folder;
        runUnnamedChildTest(QStringLiteral("UnnamedHostTest.*") + QLatin1String(test),
                            folder.path());
    }
}

TEST_F(AdsDownloaderTest, GoingOfflineAndBackSwitchesTheTableInForce) {
    fillCache({banner(QStringLiteral("cached"))}, {});
    serve({banner(QStringLiteral("served"))});
    runCycle();
    const auto inForce = [] {
        return downloader()
            .replyJSON()
            ->value(kMainBannerKey)
            .toArray()
            .first()
            .toObject()
            .value(kBannerName)
            .toString();
    };
    EXPECT_EQ(inForce(), QStringLiteral("served"));
    goOffline();
    EXPECT_EQ(inForce(), QStringLiteral("cached"));
    useDeployment(deployment());
    EXPECT_EQ(inForce(), QStringLiteral("served"));
}

TEST_F(AdsDownloaderTest, ABannerIsDownloadedCachedAndThenServedFromDiskInsideTheCall) {
    const QJsonObject ad = banner(QStringLiteral("one"));
    serve({ad});
    runCycle();
    ASSERT_TRUE(pullBanner());
    EXPECT_EQ(downloader().bannerURL().toLocalFile(), cachesFolder() + QStringLiteral("/one.gif"));
    EXPECT_EQ(downloader().linkBannerURL(),
              QUrl(QStringLiteral("macappstores://classic.velmora-store.example/app/idone")));
    EXPECT_EQ(downloader().bannerInfo(), ad);
    EXPECT_EQ(downloader().cacheStorage().infoDictionary().value(kMainBannerKey).toArray(),
              QJsonArray{ad});

    bool inside = false;
    downloader().downloadBannerWithComplitionBlock([&](const BannerAd &, bool) { inside = true; });
    EXPECT_TRUE(inside);
    EXPECT_EQ(server.log().count(QStringLiteral("/media/one.gif")), 1);
}

TEST_F(AdsDownloaderTest, AFailedBannerLeavesTheReadyOneWhole) {
    serve({banner(QStringLiteral("good"))});
    runCycle();
    ASSERT_TRUE(pullBanner());
    const QUrl ready = downloader().bannerURL();

    downloader().setReplyJSON(
        QJsonObject{{kMainBannerKey, QJsonArray{banner(QStringLiteral("bad"))}}});
    for (const Fault &fault : {Fault::truncated(), Fault::reset(), Fault::wrongBody({})}) {
        server.faults().set(QStringLiteral("/media/bad.gif"), fault);
        const int before = server.log().count(QStringLiteral("/media/bad.gif"));
        std::optional<BannerAd> told;
        downloader().downloadBannerWithComplitionBlock([&](const BannerAd &ad, bool hasFailed) {
            EXPECT_TRUE(hasFailed);
            told = ad;
        });
        ASSERT_TRUE(eventually([&] { return told.has_value(); }));
        EXPECT_GT(server.log().count(QStringLiteral("/media/bad.gif")), before);
        // The ad drawn last is not the one that is ready, and none of it is mixed in.
        EXPECT_EQ(downloader().bannerInfo(), banner(QStringLiteral("bad")));
        EXPECT_EQ(told->name, QStringLiteral("good"));
        EXPECT_EQ(told->file, ready);
        EXPECT_TRUE(told->link.path().endsWith(QStringLiteral("idgood")));
        EXPECT_EQ(downloader().bannerURL(), ready);
        EXPECT_FALSE(QFile::exists(cachesFolder() + QStringLiteral("/bad.gif")));
    }
    // Nothing is remembered of the failure: the next pull succeeds.
    server.faults().clear();
    EXPECT_TRUE(pullBanner());
    EXPECT_NE(downloader().bannerURL(), ready);
}

TEST_F(AdsDownloaderTest, WithoutAnAdTheCallbackComesAtOnce) {
    int called = 0;
    downloader().downloadBannerWithComplitionBlock([&](const BannerAd &ready, bool hasFailed) {
        ++called;
        EXPECT_TRUE(ready.file.isEmpty());
        EXPECT_FALSE(hasFailed);
    });
    EXPECT_EQ(called, 1);
}

TEST_F(AdsDownloaderTest, WhoeverAsksDuringADownloadIsServedWithThatBanner) {
    serve({banner(QStringLiteral("slow"))});
    runCycle();
    const auto ask = [this](const QString &who) {
        downloader().downloadBannerWithComplitionBlock([this, who](const BannerAd &ad,
                                                                   bool hasFailed) {
            notes.append(who + QLatin1Char(' ') + (hasFailed ? QStringLiteral("none") : ad.name));
        });
    };
    const QStringList served{QStringLiteral("first slow"), QStringLiteral("second slow")};
    for (const bool fails : {true, false}) {
        server.faults().set(QStringLiteral("/media/slow.gif"),
                            fails ? Fault::truncated().after(80) : Fault::delay(80));
        ask(QStringLiteral("first"));
        downloader().downloadBannerWithComplitionBlock({});
        // The table in force changes meanwhile: that is for the next draw.
        downloader().setReplyJSON(QJsonObject{
            {kMainBannerKey,
             QJsonArray{banner(fails ? QStringLiteral("slow") : QStringLiteral("next"))}}});
        ask(QStringLiteral("second"));
        EXPECT_TRUE(notes.isEmpty());
        ASSERT_TRUE(eventually([&] { return notes.size() == 2; }));
        EXPECT_EQ(notes, fails ? QStringList(served).replaceInStrings(QStringLiteral("slow"),
                                                                      QStringLiteral("none"))
                               : served);
        notes.clear();
    }
    EXPECT_EQ(server.log().count(QStringLiteral("/media/slow.gif")), 2);
    EXPECT_EQ(server.log().count(QStringLiteral("/media/next.gif")), 0);
    EXPECT_TRUE(pullBanner());
    EXPECT_EQ(downloader().readyBanner().name, QStringLiteral("next"));
}

TEST_F(AdsDownloaderTest, ACachesFolderThatWasTakenAwayIsMadeAgain) {
    serve({banner(QStringLiteral("one"))});
    runCycle();
    ASSERT_TRUE(pullBanner());
    ASSERT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
    ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    ASSERT_TRUE(pullBanner());
    EXPECT_TRUE(QFile::exists(cachesFolder() + QStringLiteral("/one.gif")));

    // Also while a download is under way.
    const QString path = QStringLiteral("/media/one.gif");
    QFile::remove(cachesFolder() + QStringLiteral("/one.gif"));
    server.faults().set(path, Fault::hang());
    bool called = false;
    downloader().downloadBannerWithComplitionBlock([&](const BannerAd &, bool) { called = true; });
    ASSERT_TRUE(eventually([&] { return server.log().count(path) == 3; }));
    ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    server.faults().clear();
    EXPECT_TRUE(eventually([&] { return called; }));
}

TEST_F(AdsDownloaderTest, AReadyVideoWhoseFileIsGoneCountsAsNone) {
    serve({}, {video(QStringLiteral("film"))});
    runCycle();
    ASSERT_TRUE(eventually([] { return !downloader().readyVideo().file.isEmpty(); }));
    // The next one is under way, and never there.
    server.faults().set(QStringLiteral("/media/film.mp4"), Fault::hang());
    ASSERT_TRUE(ProcessRoot::get<DiskQueue>().drain(std::chrono::seconds(10)));
    ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    EXPECT_TRUE(downloader().readyVideo().file.isEmpty());
    EXPECT_TRUE(downloader().readyVideo().link.isEmpty());
}

TEST_F(AdsDownloaderTest, AMissingPathEndsInTheNullName) {
    QJsonObject nameless = banner(QStringLiteral("nameless"));
    nameless.remove(kBannerImgURL);
    serve({nameless});
    runCycle();
    bool called = false;
    bool failed = false;
    const auto note = [&](const BannerAd &, bool hasFailed) {
        called = true;
        failed = hasFailed;
    };
    downloader().downloadBannerWithComplitionBlock(note);
    EXPECT_TRUE(called && failed);
    EXPECT_TRUE(downloader().bannerURL().isEmpty());
    called = false;

    putInCaches(QStringLiteral("(null)"), "left over");
    downloader().downloadBannerWithComplitionBlock(note);
    EXPECT_TRUE(called && !failed);
    EXPECT_TRUE(downloader().bannerURL().path().contains(MissingNameMark));
}

TEST_F(AdsDownloaderTest, AVideoNeedsItsStillAndEachReadPreparesTheNext) {
    const QJsonObject first = video(QStringLiteral("first"));
    serve({}, {first});
    runCycle();
    EXPECT_TRUE(downloader().videoURL().isEmpty());
    ASSERT_TRUE(eventually([] { return !downloader().interstitialVideoURL().isEmpty(); }));
    EXPECT_EQ(downloader().linkVideoURL(),
              QUrl(QStringLiteral("macappstores://apps.velmora-store.example/app/idfirst")));
    EXPECT_EQ(downloader().cacheStorage().infoDictionary().value(kMainVideoKey).toArray(),
              QJsonArray{first});

    // The still of the next one fails: the first video stays, but its still has been let go.
    const QJsonObject second = video(QStringLiteral("second"));
    downloader().setReplyJSON(QJsonObject{{kMainVideoKey, QJsonArray{second}}});
    server.faults().set(QStringLiteral("/media/second.png"), Fault::reset());
    const QUrl ready = downloader().videoURL();
    EXPECT_TRUE(ready.path().endsWith(QStringLiteral("/first.mp4")));
    ASSERT_TRUE(eventually([] { return downloader().interstitialVideoURL().isEmpty(); }));
    quietly(60);
    EXPECT_EQ(downloader().cacheStorage().infoDictionary().value(kMainVideoKey).toArray().size(),
              1);

    // Once everything is cached, a read returns the new video itself.
    server.faults().clear();
    downloader().downloadVideo();
    ASSERT_TRUE(eventually([] { return !downloader().interstitialVideoURL().isEmpty(); }));
    EXPECT_TRUE(downloader().videoURL().path().endsWith(QStringLiteral("/second.mp4")));
    EXPECT_EQ(downloader().videoInfo(), second);
}

TEST_F(AdsDownloaderTest, AVideosPartsStayTogetherWhileOthersAreUnderWay) {
    const auto table = [](const QJsonObject &ad) {
        downloader().setReplyJSON(QJsonObject{{kMainVideoKey, QJsonArray{ad}}});
    };
    const auto fileNames = [](const VideoAd &ad) {
        return QStringList{ad.file.fileName(), ad.still.fileName(), ad.link.fileName(), ad.name()};
    };
    const auto partsOf = [](const QString &name) {
        return QStringList{name + QStringLiteral(".mp4"), name + QStringLiteral(".png"),
                           QStringLiteral("id") + name, name};
    };
    serve({}, {video(QStringLiteral("first"))});
    runCycle();
    downloader().downloadVideo();
    ASSERT_TRUE(eventually([] { return !downloader().interstitialVideoURL().isEmpty(); }));

    const QString still = QStringLiteral("/media/second.png");
    server.faults().set(still, Fault::hang());
    const QJsonObject second = video(QStringLiteral("second"));
    table(second);
    downloader().downloadVideo();
    ASSERT_TRUE(eventually([&] { return server.log().count(still) == 1; }));
    server.faults().set(QStringLiteral("/media/third.mp4"), Fault::hang());
    const QJsonObject third = video(QStringLiteral("third"));
    table(third);
    EXPECT_EQ(fileNames(downloader().readyVideo()), partsOf(QStringLiteral("first")));
    EXPECT_EQ(downloader().videoInfo(), third) << "the ad drawn last";
    EXPECT_TRUE(downloader().interstitialVideoURL().isEmpty());

    server.faults().clear(still);
    ASSERT_TRUE(eventually([] { return !downloader().interstitialVideoURL().isEmpty(); }));
    EXPECT_EQ(fileNames(downloader().readyVideo()), partsOf(QStringLiteral("second")));
    EXPECT_EQ(downloader().linkVideoURL().fileName(), QStringLiteral("idsecond"));
    EXPECT_EQ(downloader().cacheStorage().infoDictionary().value(kMainVideoKey).toArray().last(),
              QJsonValue(second));
    EXPECT_EQ(downloader().videoInfo(), third);
}

TEST_F(AdsDownloaderTest, DelegatesAreToldInOrderUntilTheyAreGone) {
    serve({banner(QStringLiteral("one"))}, {video(QStringLiteral("v"))});
    std::vector<std::shared_ptr<Listener>> listeners;
    for (const char *name : {"a", "b", "c"})
        listeners.push_back(std::make_shared<Listener>(notes, QLatin1String(name)));
    listeners[1]->action = [&] { listeners[2]->gone = true; };
    for (const auto &listener : listeners)
        downloader().addDelegate(listener);
    downloader().startUpdateAllAds();
    ASSERT_TRUE(eventually([&] { return notes.size() >= 2; }));
    EXPECT_EQ(notes.mid(0, 2), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    notes.clear();
    downloader().downloadBanner();
    EXPECT_EQ(notes, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(downloader().delegateCount(), 2u);
    // The cycle has prepared a video, too.
    EXPECT_TRUE(eventually([] { return !downloader().interstitialVideoURL().isEmpty(); }));
}

TEST_F(AdsDownloaderTest, WhileAdsAreRemovedNobodyIsAsked) {
    Switches::setADSRemoved(true);
    downloader().startUpdateAllAds();
    quietly(100);
    EXPECT_EQ(server.log().count(), 0);
}

TEST_F(AdsDownloaderTest, LooksUpNamesInTheStoreOffTheMainThread) {
    server.campaign().setLookupName(QStringLiteral("42"), QStringLiteral("Photo Editor - Filters"));
    const auto nameOf = [](const char *link, bool isWeb) {
        QString name;
        std::thread([&] {
            name = AdsDownloader::appNameFromMarketLink(QLatin1String(link), isWeb);
        }).join();
        return name;
    };
    downloader();
    EXPECT_EQ(nameOf("/app/ID42", false), QStringLiteral("PhotoEditor"));
    EXPECT_EQ(nameOf("/app/id42", true), QStringLiteral("Web PhotoEditor"));
    EXPECT_EQ(nameOf("/app/id99", false), QStringLiteral("null"));
    EXPECT_EQ(nameOf("/app/", true), QStringLiteral("Web null"));
    EXPECT_EQ(server.log().requests(QStringLiteral("/lookup*")).first().target,
              QByteArray("/lookup?id=42"));
    EXPECT_EQ(server.log().requests(QStringLiteral("/lookup*")).last().target,
              QByteArray("/lookup?id="));
    EXPECT_FALSE(AdsDownloader::JSONSearchByQuery(baseUrl + QStringLiteral("/lookup?id=42")));
}

TEST_F(AdsDownloaderTest, TheProcessStateMayGoWhileNamesAreBeingLookedUp) {
    for (int round = 0; round < 300; ++round) {
        downloader();
        std::vector<std::thread> lookUps;
        for (int i = 0; i < 4; ++i) {
            lookUps.emplace_back(
                [] { AdsDownloader::appNameFromMarketLink(QStringLiteral("/app/id1"), false); });
        }
        std::this_thread::sleep_for(std::chrono::microseconds(5 * round));
        ProcessRoot::drop();
        for (std::thread &lookUp : lookUps)
            lookUp.join();
    }
}

TEST_F(AdsDownloaderTest, TheProcessEndsAtOnceWithAHungServerAndEverythingInFlight) {
    server.faults().set(QStringLiteral("*"), Fault::hang());
    downloader().startUpdateAllAds();
    downloader().setReplyJSON(QJsonObject{{kMainBannerKey, QJsonArray{banner(QStringLiteral("b"))}},
                                          {kMainVideoKey, QJsonArray{video(QStringLiteral("v"))}}});
    bool called = false;
    downloader().downloadBannerWithComplitionBlock([&](const BannerAd &, bool) { called = true; });
    downloader().downloadVideo();
    ASSERT_TRUE(eventually([&] { return server.log().count() >= 3; }));
    QElapsedTimer clock;
    clock.start();
    restartProcess();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_FALSE(called);
}

} // namespace velmora::test
