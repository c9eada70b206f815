// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>

namespace velmora::test {

class SplashAdMarkTest : public RegisteredHost {
protected:
    const SplashScreenOutlets &outlets() { return controller(window).outlets(); }
    /// What the ad mark says; nothing while it is hidden.
    QString mark() {
        handleEvents();
        return isShown(outlets().adMark) ? outlets().adMark->text() : QString();
    }
    QString counting(const QString &seconds) { return QStringLiteral("Ad \u00b7 %1").arg(seconds); }
    void click(const QPoint &point) {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          outlets().urlButton->mapTo(window, point));
    }
};

TEST_F(SplashAdMarkTest, CountsDownWithTheRingAndStaysOnTheAd) {
    useUnplayableVideo();
    Velmora::forceShow();
    time.advance(1);
    EXPECT_EQ(mark(), counting(QStringLiteral("9")));
    time.advance(5);
    for (int second = 0; second < 3; ++second) {
        EXPECT_EQ(mark(), counting(videoCountdown(window)));
        EXPECT_TRUE(isShown(outlets().timeVideoLabel)) << "the ring keeps its number";
        time.advance(1);
    }
    EXPECT_EQ(videoCountdown(window), QStringLiteral("1"));
    const QRect beside = outlets().adMark->geometry();
    EXPECT_FALSE(beside.intersects(outlets().videoProgressView->geometry()));

    controller(window).showEndScreen();
    controller(window).setInterstitialUrl(QUrl(QStringLiteral("file:///still.png")));
    controller(window).didVideoEnded();
    controller(window).showEndScreen();
    EXPECT_EQ(mark(), QStringLiteral("Ad")) << "on the still";
    controller(window).setInterstitialUrl({});
    controller(window).showEndScreen();
    EXPECT_EQ(mark(), QString()) << "an end screen without a still is no ad";
}

TEST_F(SplashAdMarkTest, SaysNothingWhereNoAdComes) {
    Velmora::forceShow();
    time.advance(1);
    EXPECT_EQ(mark(), QString());
    time.advance(6);
    EXPECT_EQ(mark(), QString());
}

TEST_F(SplashAdMarkTest, NothingBesideTheCloseButtonIsTheAd) {
    Velmora::setDefaultVideoWithURL(
        QUrl::fromLocalFile(cachesFolder() + QStringLiteral("/broken.mp4")),
        QUrl(QStringLiteral("https://ad.example/")));
    putInCaches("broken.mp4", "no video");
    Velmora::forceShow();
    time.advance(8);
    const QRect ring = outlets().videoProgressView->geometry();
    click(outlets().adMark->geometry().center());
    click(ring.topLeft() + QPoint(1, 1));
    EXPECT_TRUE(opened.isEmpty());
    time.advance(3);
    const CloseButtonCell *close = outlets().closeButton;
    ASSERT_TRUE(isShown(close));
    EXPECT_EQ(close->geometry(), ring);
    for (const QSize &size : {QSize(160, 120), {1600, 1200}, {640, 480}}) {
        window->resize(size);
        handleEvents();
        EXPECT_EQ(close->geometry(), outlets().videoProgressView->geometry());
        EXPECT_GE(close->width(), 28);
    }
    click(outlets().adMark->geometry().center());
    EXPECT_TRUE(opened.isEmpty());
    click(close->geometry().topLeft() + QPoint(1, 1));
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_FALSE(Velmora::isShowSplashScreen()) << "the corner of the close button closes";
}

} // namespace velmora::test
