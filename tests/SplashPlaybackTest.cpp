// SPDX-License-Identifier: Apache-2.0
#include "AdKeys.h"
#include "AdsDownloader.h"
#include "tests/support/SplashHost.h"
#include "tests/support/TestGif.h"
#include "tests/support/VideoHelpers.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>

#include <signal.h>

namespace velmora::test {

// Plays real videos; only the clock of the sequence is virtual.
class SplashPlaybackTest : public SplashHost {
protected:
    SplashPlaybackTest() {
        Velmora::setDefaultVideoWithURL(
            QUrl::fromLocalFile(QStringLiteral(VELMORA_TEST_CLIPS "/short.mp4")), {});
    }

    VideoPlayer *player() { return controller(window).playerlayer(); }
    bool showsPicture() {
        return !controller(window).outlets().splashScreenPlayerView->frame().isNull();
    }

    QWidget *elsewhere = openWindow("elsewhere");
    QWidget *window = openRegistered("main");
};

TEST_F(SplashPlaybackTest, AVideoPlaysPausesResumesAndEnds) {
    presenter().setMuted(true);
    Velmora::showWithouSplash();
    time.advance(0);
    ASSERT_TRUE(eventually([this] { return showsPicture(); }));
    EXPECT_TRUE(player()->isPlaying());
    EXPECT_TRUE(player()->isMuted());
    EXPECT_EQ(controller(window).outlets().soundButton->state(), 1);

    activate(elsewhere);
    EXPECT_FALSE(player()->isPlaying());
    activate(window);
    EXPECT_TRUE(player()->isPlaying());
    heard();
    ASSERT_TRUE(eventually([] { return presenter().isShowEnd(); }));
    EXPECT_EQ(heard(), (QStringList{VideoStop}));
    EXPECT_EQ(presenter().videoDuration(), 1);
    EXPECT_FALSE(isShown(controller(window).outlets().closeButton));
    time.advance(5);
    EXPECT_TRUE(isShown(controller(window).outlets().closeButton));
    EXPECT_FALSE(isShown(controller(window).outlets().splashScreenPlayerView));
    controller(window).outlets().closeButton->click();
    EXPECT_EQ(player(), nullptr);
}

TEST_F(SplashPlaybackTest, APlayingVideoMayBeRemovedAtAnyMoment) {
    for (int round = 0; round < 3; ++round) {
        Velmora::showWithouSplash();
        time.advance(0);
        ASSERT_NE(player(), nullptr);
        ASSERT_TRUE(eventually([this] { return showsPicture(); }));
        if (round == 0) {
            presenter().didClickClose();
        } else if (round == 1) {
            closeWindow(window);
            handleEvents();
            presenter().didClickClose();
            window = openRegistered("another");
        } else {
            Velmora::removeAdsNow();
        }
        handleEvents();
    }
    EXPECT_TRUE(presenter().SSControllers().empty());
}

TEST_F(SplashPlaybackTest, TheStillTakesThePlaceOfAVideoWhoseDecoderCrashes) {
    watchVideoHelpers();
    QFile clip(QStringLiteral(VELMORA_TEST_CLIPS "/longer.mp4"));
    ASSERT_TRUE(clip.open(QIODevice::ReadOnly));
    putInCaches("own.mp4", clip.readAll());
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
    ASSERT_TRUE(eventually([&] { return !downloader.interstitialVideoURL().isEmpty(); }));

    Velmora::showWithouSplash();
    time.advance(0);
    ASSERT_TRUE(eventually([this] { return showsPicture(); }));
    time.advance(5);
    const auto &outlets = controller(window).outlets();
    EXPECT_TRUE(isShown(outlets.closeButton));
    EXPECT_TRUE(isShown(outlets.splashScreenPlayerView));
    heard();
    ASSERT_EQ(videoHelpers().size(), 1);
    kill(videoHelpers().constFirst(), SIGSEGV);
    EXPECT_TRUE(eventually([&] { return isShown(outlets.interstitialImage); }));
    EXPECT_FALSE(isShown(outlets.splashScreenPlayerView));
    EXPECT_TRUE(isShown(outlets.closeButton));
    const auto showsStill = [&] {
        time.advance(0.1); // the view fades
        const QImage grabbed = window->grab().toImage();
        return grabbed.pixelColor(grabbed.rect().center()) == QColor(Qt::red);
    };
    EXPECT_TRUE(eventually(showsStill));
    EXPECT_EQ(heard(), QStringList()) << "the video has not ended";
}

} // namespace velmora::test
