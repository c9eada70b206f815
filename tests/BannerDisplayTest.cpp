// SPDX-License-Identifier: Apache-2.0
#include "tests/support/BannerHost.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/Waiting.h"

#include <QtGui/QRasterWindow>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace velmora::test {

/// A banner over native windows of the host that come and go, as a real display shows it.
class BannerDisplayTest : public BannerHost {
protected:
    BannerDisplayTest() {
        new QVBoxLayout(window.get());
        serveWide();
        addBanner();
        EXPECT_TRUE(shows("wide"));
        time.advance(1); // the fade
    }

    std::unique_ptr<QWidget> nativeChild() {
        auto child = std::make_unique<QWidget>(window.get());
        child->setAttribute(Qt::WA_NativeWindow);
        child->setAutoFillBackground(true);
        child->setGeometry(0, 300, 1000, 300);
        child->show();
        return child;
    }

    bool isBannerSeen() {
        return eventually([this] {
            const QRect banner = current()->rectInWindow();
            const QPoint left(banner.left() + banner.width() / 8, banner.center().y());
            return colorOnDisplay(window.get(), left) == QColor(Qt::red);
        });
    }
};

TEST_F(BannerDisplayTest, ItIsSeenOverNativeWidgetsThatComeAndGo) {
    EXPECT_TRUE(isBannerSeen());
    auto native = nativeChild();
    EXPECT_TRUE(isBannerSeen());
    quietly(200); // what the native window has caused is over
    EXPECT_TRUE(isBannerSeen());
    (new QLabel(window.get()))->show();
    quietly(100);
    EXPECT_TRUE(isBannerSeen());
    native->raise();
    quietly(100);
    EXPECT_TRUE(isBannerSeen());
    window->resize(900, 500);
    EXPECT_TRUE(isBannerSeen());
    native->hide();
    EXPECT_TRUE(isBannerSeen());
    native->show();
    quietly(100);
    EXPECT_TRUE(isBannerSeen());
    native.reset();
    EXPECT_TRUE(isBannerSeen());
}

TEST_F(BannerDisplayTest, ItIsSeenWhenTheHostsNativeWindowIsCreatedAgain) {
    QWidget *container = QWidget::createWindowContainer(new QRasterWindow, window.get());
    container->setGeometry(0, 300, 1000, 300);
    container->show();
    EXPECT_TRUE(isBannerSeen());
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    quietly(100); // too early, Qt mistakes the old native window for the new one
    window->show();
    quietly(100);
    EXPECT_TRUE(isBannerSeen());
    delete container;
    EXPECT_TRUE(isBannerSeen());
}

} // namespace velmora::test
