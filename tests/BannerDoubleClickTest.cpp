// SPDX-License-Identifier: Apache-2.0
#include "CloseButtonCell.h"
#include "tests/support/BannerHost.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

namespace velmora::test {

class BannerDoubleClickTest : public BannerHost {};

TEST_F(BannerDoubleClickTest, TheSecondClickOnTheCloseButtonDoesNotPressWhatWasBelow) {
    QPushButton below(window.get());
    below.setGeometry(window->rect());
    below.show();
    int presses = 0;
    QObject::connect(&below, &QPushButton::pressed, [&] { ++presses; });
    addBanner();
    ASSERT_TRUE(showsHouseBanner() || (time.advance(15), showsHouseBanner()));
    time.advance(1);
    current()->viewIfLoaded()->raise();
    handleEvents();
    const QWidget *button = current()->closeButton();
    const QPoint place = button->mapTo(window.get(), button->rect().center());
    const auto removal = NotificationCenter::defaultCenter().addObserver(
        VLMtryRemoveAds, [](const Notification &) { Velmora::removeAdsNow(); });

    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
    ASSERT_TRUE(Velmora::isADSRemoved());
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
        EXPECT_EQ(presses, 0);
        time.advance(0.3); // the banner has faded away
    }
    time.advance(QApplication::doubleClickInterval() / 1000.0);
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(presses, 1);
    Velmora::resetAds();
}

} // namespace velmora::test
