// SPDX-License-Identifier: Apache-2.0
#include "AdKeys.h"
#include "AdsDownloader.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/SplashHost.h"
#include "tests/support/TestGif.h"
#include "tests/support/VideoHelpers.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>

#include <signal.h>

namespace velmora::test {

/// Real videos that fail before their close button is due. Only the clock of the sequence is
/// virtual.
class SplashVideoFailureTest : public SplashHost {
protected:
    static QByteArray clip(QAnyStringView name) {
        QFile file(QStringLiteral(VELMORA_TEST_CLIPS "/") + name.toString());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    // An ad with a video and a red still.
    void serve(const QByteArray &film) {
        putInCaches("own.mp4", film);
        putInCaches("own.png", gif({Qt::red}));
        AdsDownloader &downloader = *AdsDownloader::sharedInstance();
        downloader.startUpdateAllAds();
        ASSERT_TRUE(eventually([&] { return downloader.isUpdateAdsCurrentSession(); }));
        downloader.setReplyJSON(QJsonObject{
            {kMainVideoKey,
             QJsonArray{QJsonObject{{kMainNameKey, QStringLiteral("own")},
                                    {kVideoCapture, QStringLiteral("/own.mp4")},
                                    {kVideoImage, QStringLiteral("/own.png")},
                                    {kVideoPriority, 1},
                                    {kVideoURL, QStringLiteral("https://store.example/app/1")}}}}});
        downloader.downloadVideo();
        ASSERT_TRUE(eventually([&] { return downloader.hasReadyVideo(); }));
    }

    const SplashScreenOutlets &outlets() { return controller(window).outlets(); }

    bool isStillDrawn() {
        time.advance(0.01); // the views fade
        const QImage grabbed = window->grab().toImage();
        return grabbed.pixelColor(grabbed.rect().center()) == QColor(Qt::red);
    }
    void expectStill(bool withCloseButton) {
        // GStreamer's decoder may keep an error to itself. The player, which asks twice a second,
        // then finds out, long before the close button is due.
        EXPECT_TRUE(eventually([&] {
            time.advance(0.001);
            return isShown(outlets().interstitialImage);
        }));
        EXPECT_FALSE(isShown(outlets().splashScreenPlayerView));
        EXPECT_EQ(isShown(outlets().closeButton), withCloseButton);
        EXPECT_EQ(isShown(outlets().videoProgressView), !withCloseButton);
        EXPECT_EQ(isShown(outlets().timeVideoLabel), !withCloseButton);
        EXPECT_TRUE(eventually([this] { return isStillDrawn(); }));
        EXPECT_FALSE(heard().contains(VideoStop)) << "the video has not ended";
    }

    QWidget *window = openRegistered("main");
};

TEST_F(SplashVideoFailureTest, TheStillIsShownAtOnceWithTheRingAndLaterTheCloseButton) {
    const QByteArray whole = clip("index-last.mp4");
    for (const QByteArray &film : {FilmHead + "no film", whole.left(whole.size() / 2)}) {
        SCOPED_TRACE(film.size());
        serve(film);
        Velmora::showWithouSplash();
        time.advance(0);
        expectStill(false);
        time.advance(5);
        expectStill(true);
        presenter().didClickClose();
    }
}

TEST_F(SplashVideoFailureTest, TheStillTakesThePlaceOfAPlayingVideoWhoseDecoderCrashes) {
    watchVideoHelpers();
    serve(clip("longer.mp4"));
    for (const double moment : {2.0, 5.0}) {
        Velmora::showWithouSplash();
        time.advance(0);
        const VideoView *view = outlets().splashScreenPlayerView;
        ASSERT_TRUE(eventually([&] { return !view->frame().isNull(); }));
        time.advance(moment);
        EXPECT_TRUE(isShown(view));
        ASSERT_EQ(videoHelpers().size(), 1);
        kill(videoHelpers().constFirst(), SIGSEGV);
        expectStill(moment >= 5);
        time.advance(5);
        expectStill(true);
        presenter().didClickClose();
    }
}

} // namespace velmora::test
