// SPDX-License-Identifier: Apache-2.0
#include "AdsDownloader.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/SplashHost.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

namespace velmora::test {

class SplashScreenVideoTest : public RegisteredHost {};

TEST_F(SplashScreenVideoTest, LinkNameAndEndPictureBelongToTheVideoThatPlays) {
    const auto click = [&] {
        heard();
        opened.clear();
        controller(window).outlets().urlButton->click();
    };
    presenter().didClickOnVideo();
    EXPECT_EQ(heard(), QStringList()) << "no link at all";
    useUnplayableVideo();
    const QUrl link(QStringLiteral("https://store.example/app/default"));
    Velmora::setDefaultVideoWithURL(presenter().defaultVideoUrl(), link);
    ASSERT_TRUE(eventually([] { return !presenter().defaultVideoName().isNull(); }));
    // An ad was drawn, but its video cannot be downloaded: the default video plays.
    drawVideo(QStringLiteral("ghost"));
    Velmora::forceShow();
    click();
    EXPECT_EQ(opened, QList<QUrl>()) << "nothing to click on yet";
    time.advance(5);
    click();
    EXPECT_EQ(opened, QList<QUrl>{link});
    // No server answers the look-up of the name.
    EXPECT_EQ(heard(), QStringList{QStringLiteral("clickforvideo:null")});
    EXPECT_TRUE(presenter().interstitialVideoUrl().isEmpty());
    time.advance(5);
    presenter().didClickClose();

    putInCaches("own.mp4", FilmHead);
    putInCaches("own.png", gif({Qt::red}));
    ASSERT_TRUE(eventually([&] {
        drawVideo(QStringLiteral("own")); // refused until the request for "ghost" has failed
        return !AdsDownloader::sharedInstance()->interstitialVideoURL().isEmpty();
    }));
    drawVideo(QStringLiteral("ghost"));
    Velmora::forceShow();
    time.advance(5);
    drawVideo(QStringLiteral("ghost"));
    click();
    EXPECT_EQ(opened, QList<QUrl>{QUrl(QStringLiteral("macappstores://store.example/app/own"))});
    EXPECT_EQ(heard(), QStringList{QStringLiteral("clickforvideo:own")});
    EXPECT_EQ(presenter().videoUrl().fileName(), QStringLiteral("own.mp4"));
    EXPECT_EQ(presenter().interstitialVideoUrl().fileName(), QStringLiteral("own.png"));
}

TEST_F(SplashScreenVideoTest, MutingAppliesToEveryWindow) {
    QWidget *second = openRegistered("second");
    useUnplayableVideo();
    Velmora::forceShow();
    time.advance(5);
    controller(second).outlets().soundButton->click();
    EXPECT_TRUE(presenter().isMuted());
    EXPECT_TRUE(controller(window).isMuted());
    EXPECT_TRUE(controller(second).playerlayer()->isMuted());
    QWidget *late = openRegistered("late");
    EXPECT_TRUE(controller(late).isMuted()) << "a window that comes after the sound was turned off";
    controller(second).outlets().soundButton->click();
    EXPECT_FALSE(controller(window).isMuted());
}

} // namespace velmora::test
