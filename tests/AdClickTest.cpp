// SPDX-License-Identifier: Apache-2.0
#include "tests/support/BannerHost.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/SplashHost.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include "BannerImageView.h"

#include <QtTest/QSignalSpy>

namespace velmora::test {

namespace {

/// Clicks with the mouse of a real display on a point of a widget.
void click(const QWidget *widget, QPoint point, int times = 1) {
    const QPoint global = widget->mapToGlobal(point);
    runOnDisplay(QStringLiteral("xdotool"),
                 {QStringLiteral("mousemove"), QString::number(global.x()),
                  QString::number(global.y()), QStringLiteral("click"), QStringLiteral("--repeat"),
                  QString::number(times), QStringLiteral("--delay"), QStringLiteral("40"),
                  QStringLiteral("1")});
    quietly(150);
}

} // namespace

class BannerClickTest : public BannerHost {};

TEST_F(BannerClickTest, AClickCountsOnlyWhenTheBannerHasBeenThereForAMoment) {
    for (const char *name : {"one", "two"})
        server.campaign().setMedia(QStringLiteral("/media/%1.gif").arg(QLatin1String(name)),
                                   gif({Qt::red}, {728, 90}));
    AdBannerController *banner = showOneOf({QStringLiteral("one"), QStringLiteral("two")});
    const BannerImageView *picture = banner->bannerImage();
    const QPoint middle = picture->rect().center();
    ASSERT_TRUE(takesClicks());
    time.advance(14.5);
    click(picture, middle);
    EXPECT_EQ(opened.size(), 1);
    const QString before = banner->selectBanner();
    time.advance(0.5);
    ASSERT_TRUE(eventually([&] { return banner->selectBanner() != before; }));
    ASSERT_TRUE(eventually([&] { return picture->decodedFrames() > 0; }));
    time.advance(0.29);
    click(picture, middle);
    EXPECT_EQ(opened.size(), 1) << "just swapped";
    time.advance(0.02);
    click(picture, middle, 3);
    EXPECT_EQ(opened.size(), 2) << "double and triple clicks open once";
}

class SplashClickTest : public RegisteredHost {
protected:
    /// Shows a picture in the view of the video, as the player does.
    void showFrame() {
        QImage frame(160, 90, QImage::Format_RGB32);
        frame.fill(Qt::red);
        outlets().splashScreenPlayerView->showFrame(frame);
        handleEvents();
    }
    const SplashScreenOutlets &outlets() { return controller(window).outlets(); }
};

TEST_F(SplashClickTest, OnlyThePictureIsTheAdAndNotAtItsBeginning) {
    window->resize(400, 600);
    quietly(200); // the window manager
    SplashScreenController &splash = controller(window);
    splash.showStartScreen();
    splash.showVideo();
    splash.removeVideoLayer(); // there is no video, so it would fail
    time.advance(1);
    const LinkArea *link = outlets().urlButton;
    const QSignalSpy clicks(link, &QAbstractButton::clicked);
    const QPoint middle = link->rect().center();
    const QPoint bar(200, 120);
    click(link, middle);
    EXPECT_EQ(clicks.size(), 0) << "there is no picture yet";
    EXPECT_EQ(link->cursor().shape(), Qt::ArrowCursor);

    showFrame();
    EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor) << "the pointer has not moved";
    time.advance(0.69);
    click(link, middle);
    EXPECT_EQ(clicks.size(), 0);
    time.advance(0.02);
    click(link, bar);
    EXPECT_EQ(clicks.size(), 0) << "beside the picture";
    EXPECT_EQ(link->cursor().shape(), Qt::ArrowCursor);
    click(link, middle, 2);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor);

    // The still of the end screen.
    putInCaches("still.gif", stillGif(Qt::red, Qt::red, {160, 90}));
    splash.setInterstitialUrl(QUrl::fromLocalFile(cachesFolder() + QStringLiteral("/still.gif")));
    splash.didVideoEnded();
    splash.showEndScreen();
    time.advance(1);
    click(link, bar);
    EXPECT_EQ(clicks.size(), 1);
    click(link, middle);
    EXPECT_EQ(clicks.size(), 2);
}

} // namespace velmora::test
