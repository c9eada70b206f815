// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/VideoHelpers.h"
#include "tests/support/Waiting.h"

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

TEST_F(SplashPlaybackTest, TheHelperStartsOnceTheWindowsAreCoveredAndBeforeTheVideo) {
    watchVideoHelpers();
    for (const qint64 loadTime : {3, 1}) {
        presenter().setLoadTime(loadTime);
        Velmora::forceShow();
        time.advance(0.9);
        if (loadTime > 1) {
            quietly(100);
            EXPECT_TRUE(videoHelpers().isEmpty());
            time.advance(0.2);
        }
        EXPECT_TRUE(eventually([] { return videoHelpers().size() == 1; })) << loadTime;
        EXPECT_EQ(player(), nullptr);
        time.advance(2);
        EXPECT_TRUE(eventually([this] { return showsPicture(); }));
        presenter().didClickClose();
        EXPECT_TRUE(eventually([] { return videoHelpers().isEmpty(); }));
    }
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

} // namespace velmora::test
