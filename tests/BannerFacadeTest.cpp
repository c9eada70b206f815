// SPDX-License-Identifier: Apache-2.0
#include "Animator.h"
#include "tests/support/BannerHost.h"
#include "tests/support/Waiting.h"

#include <Velmora/StandardNames.h>

#include <QtCore/QFileInfo>
#include <QtGui/QImageReader>
#include <QtWidgets/QApplication>

#include <QtWidgets/QMainWindow>

#include <cmath>
#include <thread>

namespace velmora::test {

class BannerFacadeTest : public BannerHost {
protected:
    int errors(const char *message) const {
        return int(logged()
                       .filter(QStringLiteral("VELMORA :: ERROR :: ") + QLatin1String(message))
                       .size());
    }
};

TEST_F(BannerFacadeTest, DefaultsAreRememberedBeforeAndAfterTheFirstBanner) {
    Velmora::activateDebugMode();
    EXPECT_TRUE(Velmora::isInitializedBannerLOG_ERROR());
    Velmora::setBannersHeight(80);
    Velmora::setBannersBottomInset(7);
    Velmora::setBannersCenterXInset(-3);
    EXPECT_EQ(errors("Banner controller not initialized!"), 0);

    BannerController *first = addBanner();
    EXPECT_EQ(first->height(), 80);
    EXPECT_EQ(first->bottomInset(), 7);
    EXPECT_EQ(first->centerXInset(), -3);

    // The message says the opposite: it is logged when the list exists. The setter still works.
    Velmora::setBannersSmallImage();
    EXPECT_EQ(errors("Banner controller not initialized!"), 1);
    EXPECT_EQ(first->height(), 60);
    EXPECT_FALSE(Velmora::isInitializedBannerLOG_ERROR());

    QWidget other;
    Velmora::addBannerForWindow(&other);
    Velmora::setBannerLargeImageToWindow(&other);
    EXPECT_EQ(Velmora::BControllFromWindow(&other)->height(), 100);
    EXPECT_EQ(first->height(), 60);
    Velmora::setBannerBottomInset(20, window.get());
    Velmora::setBannerCenterXInset(30, window.get());
    EXPECT_EQ(first->bottomInset(), 20);
    EXPECT_EQ(first->centerXInset(), 30);
    EXPECT_EQ(Velmora::BControllFromWindow(&other)->bottomInset(), 7);
    Velmora::setBannersLargeImage();
    EXPECT_EQ(first->height(), 100);
}

TEST_F(BannerFacadeTest, AWindowGetsOneBannerAndAViewControllerOneForEachCall) {
    Velmora::activateDebugMode();
    Velmora::addBannerForWindow(window.get());
    Velmora::addBannerForWindow(window.get());
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
    EXPECT_EQ(errors("Window is Empty!"), 1);

    QWidget inner(window.get());
    ViewController host(&inner);
    Velmora::addBannerForViewController(&host, nullptr);
    Velmora::addBannerForViewController(&host, &inner);
    EXPECT_EQ(Velmora::BControllers().size(), 3u);
    EXPECT_EQ(errors("Window is Empty!"), 3);
    // The banner that was added last is found by its window; a controller only by itself.
    EXPECT_EQ(Velmora::BControllFromWindow(window.get()), Velmora::BControllers().back().get());
    EXPECT_EQ(Velmora::BControllFromViewController(&host), nullptr);
    EXPECT_EQ(Velmora::BControllFromViewController(Velmora::BControllers().front().get()),
              Velmora::BControllers().front().get());
    EXPECT_EQ(Velmora::BControllFromWindow(nullptr), nullptr);
}

TEST_F(BannerFacadeTest, ABannerIsHiddenThroughAnyControllerInItsWindow) {
    serve({banner(QStringLiteral("one"))});
    addBanner();
    ASSERT_TRUE(shows(QStringLiteral("one")));
    QWidget inner(window.get());
    ViewController host(&inner);
    Velmora::setBannerHidden(true, &host);
    EXPECT_TRUE(Animator::isHidden(current()->view()));
    EXPECT_FALSE(current()->view()->isVisible());
    Velmora::setBannerHidden(false, &host);
    EXPECT_TRUE(current()->view()->isVisible());
    ViewController nowhere(nullptr);
    Velmora::setBannerHidden(true, &nowhere);
    Velmora::setBannerHidden(true, nullptr);
    EXPECT_TRUE(current()->view()->isVisible());
}

TEST_F(BannerFacadeTest, AnyWidgetOfAWindowNamesThatWindow) {
    auto *inner = new QWidget(window.get());
    auto *deeper = new QWidget(inner);
    Velmora::addBannerForWindow(deeper);
    Velmora::addBannerForWindow(window.get());
    Velmora::addBannerForWindow(inner);
    ASSERT_EQ(Velmora::BControllers().size(), 1u);
    EXPECT_EQ(current()->view()->parentWidget(), window.get());
    EXPECT_EQ(Velmora::BControllFromWindow(deeper), current());
    Velmora::setBannerHeight(70, inner);
    EXPECT_EQ(current()->height(), 70);
}

TEST_F(BannerFacadeTest, AControllerWithoutAViewNeverMakesAWindow) {
    Velmora::activateDebugMode();
    server.stop();
    auto gone = std::make_unique<QWidget>();
    ViewController widowed(gone.get());
    gone.reset();
    ViewController nowhere(nullptr);
    for (ViewController *host : {&nowhere, &widowed}) {
        Velmora::addBannerForViewController(host, nullptr);
        Velmora::setBannerHidden(true, host);
        Velmora::setBannerHidden(false, host);
        for (const auto &banner : Velmora::BControllers()) {
            Velmora::setBannerHidden(false, banner.get());
            banner->endDownloadСonfiguration();
        }
        time.advance(40);
    }
    EXPECT_TRUE(hasLogged(QStringLiteral("never shown: no view was given")));
    EXPECT_EQ(Velmora::BControllFromWindow(nullptr), nullptr);
    EXPECT_EQ(time.timerCount(), 0u);

    // Nor does the banner become a window when the host takes its view out of the window.
    addBanner();
    ASSERT_TRUE(showsHouseBanner());
    BannerController *removed = current();
    removed->view()->setParent(nullptr);
    Velmora::setBannerHidden(false, removed);
    removed->swapBanners();
    time.advance(20);
    EXPECT_EQ(removed->window(), nullptr);
    for (const QWidget *top : QApplication::topLevelWidgets())
        EXPECT_TRUE(top == window.get() || !top->isVisible());

    // With a view of the host's the controller needs none.
    QWidget place(window.get());
    place.resize(900, 300);
    place.show();
    Velmora::addBannerForViewController(&nowhere, &place);
    EXPECT_TRUE(showsHouseBanner());
    EXPECT_TRUE(current()->view()->isVisible());
}

TEST_F(BannerFacadeTest, ANewCentralWidgetGetsItsBannerInTheSameTurn) {
    QMainWindow main;
    main.setCentralWidget(new QWidget);
    main.show();
    Velmora::addBannerForWindow(&main);
    ASSERT_EQ(Velmora::BControllers().size(), 1u);
    auto *next = new QWidget;
    main.setCentralWidget(next);
    Velmora::addBannerForWindow(&main);
    ASSERT_EQ(Velmora::BControllers().size(), 1u);
    EXPECT_EQ(Velmora::BControllFromWindow(&main)->view()->parentWidget(), next);
    handleEvents();
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
}

TEST_F(BannerFacadeTest, ARemovalInAnotherProcessRemovesTheBannerAtItsNextTurn) {
    serve({banner(QStringLiteral("one"))});
    addBanner();
    ASSERT_TRUE(shows(QStringLiteral("one")));
    VLMSetObjForKey(true, QStringLiteral("adsoff"));
    time.advance(BannerController::SwapSeconds);
    EXPECT_TRUE(Velmora::BControllers().empty());
    Velmora::resetAds();
    Velmora::addBannerForWindow(window.get());
    EXPECT_TRUE(shows(QStringLiteral("one")));
}

TEST_F(BannerFacadeTest, EveryCallIsHarmlessAtAnyTime) {
    QWidget inner(window.get());
    ViewController host(&inner);
    for (const bool removed : {false, true, true}) {
        if (removed)
            Velmora::removeAdsNow();
        for (QWidget *target : {static_cast<QWidget *>(nullptr), window.get(), &inner}) {
            Velmora::setBannerHeight(-1, target);
            Velmora::setBannerSmallImageToWindow(target);
            Velmora::setBannerBottomInset(1e9, target);
            Velmora::setBannerCenterXInset(std::nan(""), target);
            Velmora::setBannersHeight(HUGE_VAL);
            Velmora::addBannerForWindow(target);
            Velmora::addBannerForViewController(nullptr, target);
            Velmora::addBannerForViewController(&host, target);
        }
        Velmora::setBannersHeight(0);
        time.advance(16);
        EXPECT_EQ(Velmora::isADSRemoved(), removed);
    }
    EXPECT_TRUE(Velmora::BControllers().empty());
    EXPECT_TRUE(Velmora::isInitializedSplashScreenWithLOG_WARNING());
}

TEST_F(BannerFacadeTest, ABannerMayBeAddedFromAnotherThread) {
    std::thread([this] { Velmora::addBannerForWindow(window.get()); }).join();
    EXPECT_TRUE(eventually([] { return Velmora::BControllers().size() == 1; }));

    QWidget inner(window.get());
    auto host = std::make_unique<ViewController>(&inner);
    std::thread([&] { Velmora::addBannerForViewController(host.get(), nullptr); }).join();
    ASSERT_TRUE(eventually([] { return Velmora::BControllers().size() == 2; }));
    EXPECT_EQ(Velmora::BControllers().back()->view()->parentWidget(), &inner);
    // The controller is destroyed before the main thread adds the banner.
    std::thread([&] { Velmora::addBannerForViewController(host.get(), nullptr); }).join();
    host.reset();
    handleEvents();
    EXPECT_EQ(Velmora::BControllers().size(), 2u);
}

TEST_F(BannerFacadeTest, HouseBannersNeverAdvertiseTheHostAndAllHavePictures) {
    const auto table = StandardNames::standardBanners();
    ASSERT_EQ(table.size(), 4);
    for (auto it = table.begin(); it != table.end(); ++it) {
        QImageReader reader(StandardNames::bannerFromName(it.key()));
        EXPECT_TRUE(reader.supportsAnimation()) << qPrintable(it.key());
        EXPECT_NEAR(double(reader.size().width()) / reader.size().height(), 728 / 90.0, 0.01);
    }
    EXPECT_EQ(StandardNames::bannerFromName(QStringLiteral("mac.999999.mac-store")), QString());
    EXPECT_EQ(StandardNames::bannerFromName(QStringLiteral("../interface/BannerController.ui")),
              QString());
}

TEST_F(BannerFacadeTest, EveryLanguageHasItsTexts) {
    for (const QString &code : VLMAllowLocale()) {
        const QString folder = StandardNames::localeIdentifier({code});
        const auto info = StandardNames::getInfoFromURL(
            QUrl(QStringLiteral("qrc:/velmora/%1.lproj/Localizable.strings").arg(folder)));
        for (const char *key : {"ApplicationWillBeLaunchedTextFirst",
                                "ApplicationWillBeLaunchedTextSecond", "RemoveAdsText"})
            EXPECT_FALSE(info.value(QLatin1String(key)).isEmpty()) << qPrintable(folder) << key;
    }
    EXPECT_EQ(VLMStringFromKey(QStringLiteral("RemoveAdsText")), QStringLiteral("Remove ads"));
    EXPECT_EQ(VLMStringFromKey(QStringLiteral("unknown")), QStringLiteral("unknown"));
    EXPECT_EQ(VLMStringFromKey({}), QString(QLatin1String("")));
}

} // namespace velmora::test
