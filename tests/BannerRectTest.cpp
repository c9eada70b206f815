// SPDX-License-Identifier: Apache-2.0
#include "tests/support/BannerHost.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QTabWidget>

namespace velmora::test {

/// Which part of a window the host is told that the banner covers.
class BannerRectTest : public BannerHost {
protected:
    using Rects = QList<EventRecorder::Rect>;

    /// Adds a banner with a picture of 728x90 to a window of 1000x600.
    AdBannerController *shownBanner() {
        serveWide();
        addBanner();
        EXPECT_TRUE(shows("wide"));
        return current();
    }

    EventRecorder events;
};

TEST_F(BannerRectTest, EveryChangeIsToldOnce) {
    AdBannerController *banner = shownBanner();
    const auto expect = [&](const QRect &rect) {
        EXPECT_EQ(events.rects(), (Rects{{window.get(), rect}}));
        EXPECT_EQ(banner->rectInWindow(), rect);
        EXPECT_EQ(banner->isBannerHidden(), rect.isEmpty());
        // Nothing follows, for example from the fade.
        time.advance(1);
        EXPECT_EQ(events.rects(), Rects());
    };
    const QRect large(96, 496, 809, 104); // with a shadow of 4
    expect(large);
    Velmora::setBannersSmallImage();
    expect({257, 536, 486, 64});
    // Several changes in one turn, and one that is undone in the same turn.
    Velmora::setBannersHeight(90);
    Velmora::setBannersLargeImage();
    expect(large);
    banner->setBannerHidden(true);
    banner->setBannerHidden(false);
    EXPECT_EQ(events.rects(), Rects());
    banner->setBannerHidden(true);
    expect({});
    banner->setBannerHidden(false);
    expect(large);
    window->resize(1000, 700);
    expect({96, 596, 809, 104});
    banner->setBottomInset(-50); // the window cuts it off
    expect({96, 646, 809, 54});
    banner->setBottomInset(0);
    banner->setCenterXInset(-200);
    expect({0, 596, 705, 104});
    banner->setCenterXInset(0);
    events.rects();

    const QJsonArray next{this->banner("square")};
    server.campaign().setMedia(QStringLiteral("/media/square.gif"), gif({Qt::red}, {90, 90}));
    AdsDownloader::sharedInstance()->setReplyJSON(QJsonObject{{QStringLiteral("standard"), next}});
    time.advance(15);
    ASSERT_TRUE(shows("square"));
    expect({450, 596, 100, 104});
    const auto kept = Velmora::BControllers().front();
    Velmora::removeAdsNow();
    kept->setBannerHidden(false);
    expect({});
}

TEST_F(BannerRectTest, ItFollowsTheBannersPageAndEndsWithTheBanner) {
    server.stop();
    QMainWindow main;
    main.resize(1000, 600);
    auto *tabs = new QTabWidget;
    auto *page = new QWidget;
    tabs->addTab(page, QStringLiteral("page"));
    tabs->addTab(new QWidget, QStringLiteral("other"));
    main.setCentralWidget(tabs);
    main.show();
    ViewController host(page);
    Velmora::addBannerForViewController(&host, nullptr);
    const auto banner = Velmora::BControllers().front();
    ASSERT_TRUE(eventually([&] { return !banner->rectInWindow().isEmpty(); }));
    const auto expectIn = [&](QWidget *place) {
        const auto told = events.rects();
        ASSERT_FALSE(told.isEmpty());
        EXPECT_EQ(told.last(), (EventRecorder::Rect{place, banner->rectInWindow()}));
        EXPECT_FALSE(banner->rectInWindow().isEmpty());
    };
    expectIn(&main);
    const int left = banner->rectInWindow().left();
    EXPECT_GT(banner->rectInWindow().top(), page->height() - 150);

    tabs->setCurrentIndex(1);
    EXPECT_EQ(events.rects(), (Rects{{&main, {}}}));
    tabs->setCurrentIndex(0);
    expectIn(&main);
    // A dock moves the page without a change of its size.
    main.menuBar()->addAction(QStringLiteral("menu"));
    main.setContentsMargins(40, 0, 0, 0);
    expectIn(&main);
    EXPECT_GT(banner->rectInWindow().left(), left);
    // Hiding the window changes nothing in it.
    main.hide();
    EXPECT_EQ(events.rects(), Rects());
    main.show();

    QWidget torn;
    torn.resize(700, 300);
    torn.show();
    page->setParent(&torn);
    page->setGeometry(torn.rect());
    page->show();
    const Rects told = events.rects();
    EXPECT_EQ(told, (Rects{{&main, {}}, {&torn, banner->rectInWindow()}}));
    EXPECT_FALSE(banner->rectInWindow().isEmpty());
    delete banner->viewIfLoaded();
    EXPECT_EQ(events.rects(), (Rects{{&torn, {}}}));
}

TEST_F(BannerRectTest, ASlotMayDestroyWindowsAndRemoveAds) {
    for (const bool removes : {false, true}) {
        auto other = std::make_unique<QWidget>();
        other->show();
        window = std::make_unique<QWidget>();
        window->resize(1000, 600);
        window->show();
        QObject context;
        int calls = 0;
        QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::bannerRectChanged, &context,
                         [&] {
                             ++calls;
                             removes ? Velmora::removeAdsNow() : void();
                             window.reset();
                             other.reset();
                         });
        server.stop();
        Velmora::addBannerForWindow(window.get());
        Velmora::addBannerForWindow(other.get());
        EXPECT_TRUE(eventually([&] { return calls > 0; }));
        time.advance(1);
        EXPECT_EQ(calls, 1);
        EXPECT_TRUE(Velmora::BControllers().empty());
        Velmora::resetAds();
    }
}

} // namespace velmora::test
