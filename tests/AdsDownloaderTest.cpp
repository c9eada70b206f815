// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"
#include "AdKeys.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "Switches.h"
#include "tests/support/ChildTest.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>

namespace velmora::test {

namespace {

/// Notes its name whenever it is told that it may ask for a banner.
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

    SeededRandom random{11};
};

TEST_F(AdsDownloaderTest, ACycleTellsTheDelegatesInOrderUntilTheyAreGoneAndLoadsAVideo) {
    const QJsonObject film = video("v");
    serve({banner("one")}, {film});
    QStringList notes;
    std::vector<std::shared_ptr<Listener>> listeners;
    for (const char *name : {"a", "b", "c"})
        listeners.push_back(std::make_shared<Listener>(notes, QLatin1String(name)));
    bool isBannerFirst = false;
    listeners[0]->action = [&] {
        MainQueue::post([&] { isBannerFirst = downloader().videoInfo().isEmpty(); });
    };
    listeners[1]->action = [&] { listeners[2]->gone = true; };
    for (const auto &listener : listeners)
        downloader().addDelegate(listener);
    downloader().startUpdateAllAds();
    ASSERT_TRUE(eventually([&] { return notes.size() >= 2; }));
    EXPECT_EQ(notes.mid(0, 2), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    handleEvents();
    EXPECT_TRUE(isBannerFirst) << "a film must not hold up the banners";
    listeners[0]->action = {};
    notes.clear();
    downloader().downloadBanner();
    EXPECT_EQ(notes, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(downloader().delegateCount(), 2u);
    EXPECT_TRUE(eventually([] { return !downloader().interstitialVideoURL().isEmpty(); }));
    EXPECT_TRUE(downloader().videoURL().path().endsWith(QStringLiteral("/v.mp4")));
    EXPECT_EQ(downloader().getInfoObjectWithConsideringWeightForKey(kMainVideoKey), film);
}

/// Run by the test below, without an application object.
TEST(UnnamedHostTest, DISABLED_CachesNothing) {
    const QString folder = qEnvironmentVariable("VELMORA_TEST_UNNAMED");
    ASSERT_FALSE(folder.isEmpty());
    static QStringList lines;
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &line) { lines.append(line); });
    Switches::activateDebugMode();
    AdsDownloader::sharedInstance()->startUpdateAllAds();
    bool isRefused = false;
    AdsDownloader::downloadDataToCacheDirectoryFromURL(
        QUrl(QStringLiteral("https://127.0.0.1:1/a.gif")), MediaKind::Picture,
        [&](const MediaCache::Result &result) { isRefused = result.file.isEmpty(); });
    EXPECT_TRUE(isRefused);
    AdsCacheInfoStorage().addBannerInfo({{kBannerName, QStringLiteral("one")}});
    EXPECT_EQ(lines.filter(QStringLiteral("no name yet")).size(), 2);
    ProcessRoot::drop();
    const QStringList files = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    EXPECT_TRUE(files.isEmpty()) << qPrintable(files.join(QLatin1Char(' ')));
    qInstallMessageHandler(nullptr);
    sayPartDone();
}

/// Run by the test below. Makes its application object after its first request.
TEST(UnnamedHostTest, DISABLED_SendsItsRequestOnceThereIsAnApplicationObject) {
    adserver::AdServer server;
    server.campaign().setReply("{}");
    Deployment deployment = Deployment::builtIn();
    deployment.acsURL = server.start();
    deployment.adServerAuthorities = server.caPem();
    deployment.reachabilityProbe = QStringLiteral("127.0.0.1");
    Deployment::replace(deployment);
    AdsDownloader::sharedInstance()->startUpdateAllAds();
    LateApplication application;
    EXPECT_TRUE(
        eventually([] { return AdsDownloader::sharedInstance()->isUpdateAdsCurrentSession(); }));
    EXPECT_EQ(server.log().count(TablePath), 1);
    sayPartDone();
}

TEST(AdsDownloaderWithoutApplicationTest, CachesNothingAndSendsItsRequestLater) {
    for (const char *test : {"CachesNothing", "SendsItsRequestOnceThereIsAnApplicationObject"}) {
        const QTemporaryDir folder;
        runUnnamedChildTest(QStringLiteral("UnnamedHostTest.*") + QLatin1String(test),
                            folder.path());
    }
}

TEST_F(AdsDownloaderTest, TheEndOfTheProcessDoesNotWaitForTheStoredAds) {
    const QByteArray line =
        QJsonDocument(QJsonObject{{kMainBannerKey, QJsonArray{banner("stored")}}})
            .toJson(QJsonDocument::Compact) +
        '\n';
    restartProcess();
    putInCaches("savedAds", line.repeated(300'000));
    QElapsedTimer clock;
    clock.start();
    AdsCacheInfoStorage::cacheInfo();
    const qint64 wholeReadMs = clock.elapsed();
    // Owners of delegates hold the downloader too.
    const auto downloader = AdsDownloader::sharedInstance();
    quietly(20);
    clock.start();
    ProcessRoot::drop();
    EXPECT_LT(clock.elapsed(), wholeReadMs / 2);
}

} // namespace velmora::test
