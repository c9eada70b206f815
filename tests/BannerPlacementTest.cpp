// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "Window.h"
#include "tests/support/BannerHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QTabWidget>

#include <algorithm>

namespace velmora::test {

/// Where a banner of a 728x90 picture lies in a window of 1000x600.
class BannerPlacementTest : public BannerHost {
protected:
    AdBannerController *placed() {
        serveWide();
        AdBannerController *controller = addBanner();
        EXPECT_TRUE(shows("wide"));
        time.advance(1);
        return controller;
    }

    QColor pixelAt(QPoint point) {
        // Pictures are decoded on another thread.
        const auto *picture = window->findChild<BannerImageView *>();
        EXPECT_TRUE(eventually([&] {
            window->grab();
            return !picture || picture->decodedFrames() > 0;
        }));
        const QImage image = window->grab().toImage();
        return image.pixelColor(point * image.devicePixelRatio());
    }
};

TEST_F(BannerPlacementTest, LiesAtTheBottomAtItsHeightAboveItsShadow) {
    AdBannerController *controller = placed();
    // 728:90 at a height of 100 is 808.9 wide; the shadow is 4 deep.
    EXPECT_EQ(controller->view()->geometry(), QRect(96, 496, 809, 100));
    EXPECT_EQ(pixelAt({500, 540}), QColor(Qt::red));
    EXPECT_EQ(pixelAt({90, 540}), window->palette().color(QPalette::Window));
    EXPECT_EQ(pixelAt({500, 494}), window->palette().color(QPalette::Window));
    // The corner is rounded: the picture begins beside it.
    EXPECT_NE(pixelAt({96, 496}), QColor(Qt::red));
    EXPECT_EQ(pixelAt({101, 501}), QColor(Qt::red));

    controller->setHeight(60);
    EXPECT_EQ(controller->view()->geometry(), QRect(257, 536, 486, 60));
}

TEST_F(BannerPlacementTest, InsetsReadBackWithoutTheShadowAndMoveTheBanner) {
    AdBannerController *controller = placed();
    controller->setBottomInset(10);
    controller->setCenterXInset(40);
    EXPECT_EQ(controller->bottomInset(), 10);
    EXPECT_EQ(controller->centerXInset(), 40);
    EXPECT_EQ(controller->view()->geometry(), QRect(136, 486, 809, 100));
    // Beyond the left edge, but never beyond the right one.
    controller->setCenterXInset(400);
    EXPECT_EQ(controller->view()->geometry().right(), 999);
    EXPECT_EQ(controller->centerXInset(), 400);
    controller->setCenterXInset(-200);
    EXPECT_EQ(controller->view()->x(), -104);
    // Far outside the window it keeps its size.
    for (const double far : {-1e300, -1e10}) {
        controller->setCenterXInset(far);
        controller->setBottomInset(far);
        EXPECT_EQ(controller->view()->size(), QSize(809, 100));
        EXPECT_FALSE(controller->view()->geometry().intersects(window->rect()));
    }
}

TEST_F(BannerPlacementTest, FollowsItsWindowAndShrinksInProportion) {
    AdBannerController *controller = placed();
    window->resize(1400, 900);
    handleEvents();
    EXPECT_EQ(controller->view()->geometry(), QRect(296, 796, 809, 100));
    window->resize(400, 300);
    handleEvents();
    const QRect narrow = controller->view()->geometry();
    EXPECT_EQ(narrow.width(), 400);
    EXPECT_NEAR(narrow.height(), 400 * 90 / 728.0, 1);
    EXPECT_EQ(narrow.bottom(), 295);
    EXPECT_EQ(controller->height(), 100);
    // The close button keeps its size and its place inside.
    const QWidget *close = controller->closeButton();
    EXPECT_EQ(close->size(), QSize(24, 24));
    EXPECT_TRUE(QRect(QPoint(), narrow.size())
                    .contains(QRect(close->mapTo(controller->view(), QPoint()), close->size())));
}

TEST_F(BannerPlacementTest, InAFlatWindowItFitsAndCanBeClosed) {
    AdBannerController *controller = placed();
    const QWidget *close = controller->closeButton();
    for (const double inset : {0.0, 30.0, 500.0}) {
        controller->setBottomInset(inset);
        for (const int height : {130, 100, 60, 40, 20, 10}) {
            window->resize(1000, height);
            handleEvents();
            const QRect frame = controller->view()->geometry();
            EXPECT_TRUE(window->rect().contains(frame)) << inset << ' ' << height;
            // As large as fits; the inset takes at most half of the window.
            const double room = std::max(height - inset - 4, std::min(100.0, height / 2.0));
            EXPECT_NEAR(frame.height(), std::min(room, 100.0), 1) << inset << ' ' << height;
            EXPECT_NEAR(frame.width(), frame.height() * 728 / 90.0, 8);
            EXPECT_NEAR(frame.center().x(), 500, 1);

            const QRect button(close->mapTo(window.get(), QPoint()), close->size());
            EXPECT_TRUE(frame.contains(button)) << inset << ' ' << height;
            EXPECT_EQ(button.height(), std::min(24, frame.height()));
            EXPECT_EQ(window->childAt(button.center()), close);
            if (button.height() > 12) {
                EXPECT_NE(pixelAt(button.center()), QColor(Qt::red)) << inset << ' ' << height;
            }
        }
    }
    window->resize(1000, 600);
    handleEvents();
    EXPECT_EQ(controller->view()->geometry().height(), 100);
    EXPECT_EQ(close->size(), QSize(24, 24));
}

TEST_F(BannerPlacementTest, StaysAboveWhatTheHostAddsAndTakesNoFocus) {
    auto *field = new QPushButton(QStringLiteral("host"), window.get());
    field->setGeometry(0, 400, 1000, 200);
    field->show();
    field->setFocus();
    AdBannerController *controller = placed();
    EXPECT_EQ(pixelAt({500, 540}), QColor(Qt::red));
    auto *late = new QPushButton(QStringLiteral("late"), window.get());
    late->setGeometry(0, 400, 1000, 200);
    late->show();
    EXPECT_EQ(pixelAt({500, 540}), QColor(Qt::red));
    // The shadow is above the late button as well.
    const QColor lit = pixelAt({50, 597});
    EXPECT_LT(pixelAt({500, 597}).lightness(), lit.lightness());
    EXPECT_TRUE(field->hasFocus());
    for (const QWidget *part : controller->view()->findChildren<QWidget *>())
        EXPECT_FALSE(part->focusPolicy() & Qt::ClickFocus) << qPrintable(part->objectName());
}

TEST_F(BannerPlacementTest, InAMainWindowItLiesInTheCentralWidgetAndGoesWithIt) {
    QMainWindow host;
    const auto expectBannerIn = [&host](const QWidget *place) {
        Velmora::addBannerForWindow(&host);
        ASSERT_EQ(Velmora::BControllers().size(), 1u);
        EXPECT_EQ(Velmora::BControllFromWindow(&host)->view()->parentWidget(), place);
    };
    host.setCentralWidget(new QWidget);
    host.show();
    expectBannerIn(host.centralWidget());
    // A new central widget may get its banner in the same turn, or later.
    host.setCentralWidget(new QWidget);
    expectBannerIn(host.centralWidget());
    handleEvents();
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
    host.setCentralWidget(new QWidget);
    handleEvents();
    EXPECT_EQ(Velmora::BControllFromWindow(&host), nullptr);
    expectBannerIn(host.centralWidget());
}

TEST_F(BannerPlacementTest, ABannerMovesWithItsPageFromWindowToWindow) {
    serve({banner("one"), banner("two")});
    // Some hosts show a page as a window of its own before they put it into its place.
    auto *page = new QWidget;
    page->show();
    page->hide();
    auto *other = new QWidget;
    ViewController host(page);
    Velmora::addBannerForViewController(&host, nullptr);
    Velmora::addBannerForWindow(other);
    const auto banners = Velmora::BControllers();
    AdBannerController &first = AdBannerController::of(*banners.at(0));
    AdBannerController &second = AdBannerController::of(*banners.at(1));

    QMainWindow main;
    main.resize(1000, 600);
    auto *tabs = new QTabWidget;
    tabs->addTab(page, QStringLiteral("page"));
    tabs->addTab(other, QStringLiteral("other"));
    main.setCentralWidget(tabs);
    EXPECT_EQ(first.window(), &main);
    EXPECT_EQ(Velmora::BControllFromWindow(page), &second);
    EXPECT_EQ(Velmora::BControllFromWindow(&main), &second);
    ASSERT_TRUE(
        eventually([] { return AdsDownloader::sharedInstance()->isUpdateAdsCurrentSession(); }));
    time.advance(20);
    EXPECT_EQ(first.selectBanner(), QString());

    // The page in front gets its banner at once; the one behind gets one banner and then rests.
    main.show();
    const auto has = [](const AdBannerController &banner) {
        return eventually([&] { return !banner.selectBanner().isEmpty(); });
    };
    ASSERT_TRUE(has(first) && has(second));
    time.advance(60);
    EXPECT_TRUE(first.bannerSwapTimer());
    EXPECT_FALSE(second.bannerSwapTimer());
    tabs->setCurrentWidget(other);
    handleEvents();
    EXPECT_TRUE(second.bannerSwapTimer());
    time.advance(60);
    EXPECT_FALSE(first.bannerSwapTimer());

    // The host moves the page to a window of its own, which is not shown yet.
    QWidget torn;
    page->setParent(&torn);
    page->show();
    EXPECT_EQ(Velmora::BControllFromWindow(&torn), &first);
    time.advance(20);
    EXPECT_FALSE(first.bannerSwapTimer());
    torn.show();
    handleEvents();
    EXPECT_TRUE(first.bannerSwapTimer());
    delete page;
    EXPECT_EQ(Velmora::BControllFromWindow(&torn), nullptr);
}

TEST_F(BannerPlacementTest, ABannerMovedToAnotherSuperviewIsPlacedThereWithItsShadow) {
    AdBannerController *controller = placed();
    QWidget other;
    other.resize(900, 300);
    other.show();
    controller->view()->setParent(&other);
    controller->view()->show();
    EXPECT_EQ(Velmora::BControllFromWindow(&other), controller);
    EXPECT_EQ(controller->view()->geometry(), QRect(46, 196, 809, 100));
    handleEvents();
    const QImage image = other.grab().toImage();
    const auto lightness = [&](QPoint point) {
        return image.pixelColor(point * image.devicePixelRatio()).lightness();
    };
    EXPECT_LT(lightness({450, 297}), lightness({20, 297}));
    other.resize(900, 400);
    handleEvents();
    EXPECT_EQ(controller->view()->y(), 296);
}

TEST_F(BannerPlacementTest, ASplitterDoesNotGetTheBannerAsAPane) {
    QSplitter splitter;
    splitter.addWidget(new QWidget);
    splitter.show();
    Velmora::addBannerForWindow(&splitter);
    Velmora::addSplashScreenToUnityWindow(&splitter);
    handleEvents();
    EXPECT_EQ(Velmora::BControllers().back()->view()->parentWidget(), &splitter);
    EXPECT_EQ(splitter.count(), 1);
    splitter.addWidget(new QWidget);
    EXPECT_EQ(splitter.count(), 2);
}

TEST_F(BannerPlacementTest, ContentViewControllersGetTheBannerAsAChild) {
    QWidget content(window.get());
    content.setGeometry(0, 0, 1000, 500);
    ViewController host(&content);
    host.setContentOf(window.get());
    AdBannerController *controller = addBanner();
    EXPECT_EQ(controller->view()->parentWidget(), &content);
    EXPECT_EQ(controller->parentViewController(), &host);
    ViewController(&content).setContentOf(window.get());
    EXPECT_EQ(Window::of(window.get())->contentViewController(), nullptr);
}

TEST_F(BannerPlacementTest, InsetsBeforePlacementAreLostAndTheHeightIsNot) {
    ViewController nowhere(nullptr);
    const auto controller = AdBannerController::addBannerToViewController(&nowhere, nullptr);
    controller->setHeight(60);
    controller->setBottomInset(10);
    controller->setCenterXInset(10);
    EXPECT_EQ(controller->height(), 60);
    EXPECT_EQ(controller->bottomInset(), 0);
    EXPECT_EQ(controller->centerXInset(), 0);
    EXPECT_EQ(controller->window(), nullptr);
}

} // namespace velmora::test
