// SPDX-License-Identifier: Apache-2.0
#include "AdMark.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "InterfaceImage.h"
#include "tests/support/BannerHost.h"
#include "tests/support/Contrast.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>

#include <algorithm>
#include <cmath>

namespace velmora::test {

class AdMarkTest : public BannerHost {
protected:
    /// A banner of a wide picture at 100 points' height.
    AdBannerController *placed() {
        server.campaign().setMedia(QStringLiteral("/media/wide.gif"), gif({Qt::red}, {728, 90}));
        serve({banner("wide")});
        AdBannerController *controller = addBanner();
        EXPECT_TRUE(shows("wide"));
        time.advance(1);
        return controller;
    }

    static QRect inWindow(const QWidget *element) {
        return {element->mapTo(element->window(), QPoint()), element->size()};
    }
};

TEST_F(AdMarkTest, CanBeReadOnAnyPicture) {
    for (const QColor &picture : {QColor(Qt::white), QColor(Qt::black), QColor(Qt::yellow),
                                  QColor(128, 128, 128), QColor(255, 90, 120)}) {
        QWidget ad;
        ad.setPalette(picture);
        ad.resize(120, 40);
        AdMark mark(&ad);
        mark.setSeconds(QStringLiteral("4"));
        mark.setTextSize(10);
        mark.setGeometry(QRect({10, 10}, mark.sizeHint()));
        ad.show();
        handleEvents();
        const QImage image = ad.grab(mark.geometry()).toImage();
        // Between the rim and the text there is nothing but the background.
        const double scale = image.devicePixelRatio();
        const QColor ground = image.pixelColor(int(3 * scale), image.height() / 2);
        EXPECT_GE(contrast(Qt::white, ground), 4.5) << qPrintable(picture.name());
        double best = 0;
        for (int x = 0; x < image.width(); ++x)
            best = std::max(best, contrast(image.pixelColor(x, image.height() / 2), ground));
        EXPECT_GE(best, 4.5) << "the letters on " << qPrintable(picture.name());
    }
}

TEST_F(AdMarkTest, ABannerOfAnySizeSaysThatItIsAnAd) {
    AdBannerController *controller = placed();
    const auto *mark = controller->view()->findChild<AdMark *>();
    ASSERT_NE(mark, nullptr);
    EXPECT_EQ(mark->text(), QStringLiteral("Ad"));
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        window->setLayoutDirection(direction);
        for (const int width : {1600, 900, 480, 320, 240, 160}) {
            for (const int height : {100, 60, 30, 18}) {
                SCOPED_TRACE(::testing::Message() << width << ' ' << height);
                controller->setHeight(height);
                window->resize(width, 400);
                handleEvents();
                const QRect banner = inWindow(controller->view());
                const QRect frame = inWindow(mark);
                const QRect close = inWindow(controller->closeButton());
                EXPECT_TRUE(banner.contains(frame));
                EXPECT_FALSE(frame.isEmpty());
                EXPECT_FALSE(frame.intersects(close));
                EXPECT_LT(frame.right(), close.left()) << "at its side, also from right to left";
                EXPECT_LE(frame.width(), banner.width() / 3);
                EXPECT_EQ(window->childAt(close.center()), controller->closeButton());
                QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, frame.center());
                EXPECT_EQ(opened, QList<QUrl>());
            }
        }
    }
}

TEST_F(AdMarkTest, TheButtonsBesideItAreEvenCircles) {
    for (const double diameter : {15.0, 22.0, 28.0, 36.0, 48.0}) {
        QWidget ad;
        ad.setPalette(QColor(Qt::white));
        CloseButtonCell close(&ad);
        close.setFocusPolicy(Qt::NoFocus);
        close.setIcon(InterfaceImage::named(QStringLiteral("ads_close_button")));
        close.setImageDiameter(diameter);
        close.resize(52, 52);
        ad.resize(52, 52);
        ad.show();
        handleEvents();
        const QImage image = ad.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        // A cross in a circle looks the same in a mirror.
        const int middle = image.height() / 2;
        int left = 0;
        while (left < image.width() && qGray(image.pixel(left, middle)) == 255)
            ++left;
        int right = image.width() - 1;
        while (right > left && qGray(image.pixel(right, middle)) == 255)
            --right;
        int worst = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = left; x <= right; ++x)
                worst = std::max(worst, std::abs(qGray(image.pixel(x, y)) -
                                                 qGray(image.pixel(left + right - x, y))));
        }
        EXPECT_LE(worst, 24) << diameter;
    }
}

} // namespace velmora::test
