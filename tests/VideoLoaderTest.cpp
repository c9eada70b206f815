// SPDX-License-Identifier: Apache-2.0
#include "VideoLoader.h"
#include "AdTable.h"
#include "Switches.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/TestRandom.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDir>

namespace velmora::test {

using adserver::Fault;

class VideoLoaderTest : public LocalAdServer {
protected:
    void useVideo(const QJsonObject &ad) {
        table->setReply(AdReply::of(QJsonObject{{kMainVideoKey, QJsonArray{ad}}}));
    }

    bool waitForStill() {
        return eventually([this] { return !loader->still().isEmpty(); });
    }

    QJsonArray cachedAds() {
        return table->cacheStorage().infoDictionary().value(kMainVideoKey).toArray();
    }

    const std::shared_ptr<AdTable> table = std::make_shared<AdTable>();
    const std::shared_ptr<VideoLoader> loader = std::make_shared<VideoLoader>(table);
    SeededRandom random{11};
};

TEST_F(VideoLoaderTest, AVideoIsReadyOnceItsStillIsAndEveryReadLoadsTheNext) {
    Switches::activateDebugMode();
    const QJsonObject first = video("first");
    useVideo(first);
    EXPECT_TRUE(loader->videoToPlay().file.isEmpty());
    ASSERT_TRUE(waitForStill());
    EXPECT_EQ(loader->ready().link,
              QUrl(QStringLiteral("macappstores://apps.velmora-store.example/app/idfirst")));
    EXPECT_EQ(cachedAds(), QJsonArray{first});

    // When the next still fails, the first video stays ready, but still() stays empty.
    const QJsonObject second = video("second");
    useVideo(second);
    server.faults().set(QStringLiteral("/media/second.png"), Fault::reset());
    EXPECT_TRUE(loader->videoToPlay().file.path().endsWith(QStringLiteral("/first.mp4")));
    ASSERT_TRUE(eventually([] { return hasLogged("could not be downloaded"); }));
    EXPECT_TRUE(loader->still().isEmpty());
    EXPECT_EQ(cachedAds().size(), 1);

    // When all files are cached, a read returns the new video itself.
    server.faults().clear();
    loader->loadNext();
    ASSERT_TRUE(waitForStill());
    EXPECT_TRUE(loader->videoToPlay().file.path().endsWith(QStringLiteral("/second.mp4")));
    EXPECT_EQ(loader->drawnAd(), second);
}

TEST_F(VideoLoaderTest, AReadyVideoWhoseFileWasDeletedIsNotReturned) {
    useVideo(video("film"));
    loader->loadNext();
    ASSERT_TRUE(waitForStill());
    EXPECT_FALSE(loader->videoToPlay().file.isEmpty());
    // So that the next video never arrives.
    server.faults().set(QStringLiteral("/media/film.mp4"), Fault::hang());
    waitForDisk();
    ASSERT_TRUE(QDir(cachesFolder()).removeRecursively());
    EXPECT_TRUE(loader->videoToPlay().file.isEmpty());
    EXPECT_TRUE(loader->videoToPlay().link.isEmpty());
}

} // namespace velmora::test
