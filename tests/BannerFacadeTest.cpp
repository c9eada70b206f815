// SPDX-License-Identifier: Apache-2.0
#include "Animator.h"
#include "tests/support/BannerHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QApplication>

#include <thread>

namespace velmora::test {

class BannerFacadeTest : public BannerHost {};

TEST_F(BannerFacadeTest, DefaultsAreRememberedBeforeAndAfterTheFirstBanner) {
    Velmora::activateDebugMode();
    Velmora::setBannersHeight(80);
    Velmora::setBannersBottomInset(7);
    Velmora::setBannersCenterXInset(-3);
    EXPECT_EQ(timesLogged("VELMORA :: ERROR :: Banner controller not initialized!"), 0);

    AdBannerController *first = addBanner();
    EXPECT_EQ(first->height(), 80);
    EXPECT_EQ(first->bottomInset(), 7);
    EXPECT_EQ(first->centerXInset(), -3);

    // The message says the opposite: it is logged when the list exists. The setter still works.
    Velmora::setBannersSmallImage();
    EXPECT_EQ(timesLogged("VELMORA :: ERROR :: Banner controller not initialized!"), 1);
    EXPECT_EQ(first->height(), 60);

    QWidget other;
    Velmora::addBannerForWindow(&other);
    Velmora::setBannerLargeImageToWindow(&other);
    EXPECT_EQ(Velmora::BControllFromWindow(&other)->height(), 100);
    EXPECT_EQ(first->height(), 60);
    Velmora::setBannerBottomInset(20, window.get());
    EXPECT_EQ(first->bottomInset(), 20);
    EXPECT_EQ(Velmora::BControllFromWindow(&other)->bottomInset(), 7);
    Velmora::setBannersLargeImage();
    EXPECT_EQ(first->height(), 100);
}

TEST_F(BannerFacadeTest, AWindowGetsOneBannerAndAViewControllerOneForEachCall) {
    Velmora::activateDebugMode();
    Velmora::addBannerForWindow(window.get());
    Velmora::addBannerForWindow(window.get());
    EXPECT_EQ(Velmora::BControllers().size(), 1u);
    EXPECT_EQ(timesLogged("VELMORA :: ERROR :: Window is Empty!"), 1);

    QWidget inner(window.get());
    ViewController host(&inner);
    Velmora::addBannerForViewController(&host, nullptr);
    Velmora::addBannerForViewController(&host, &inner);
    EXPECT_EQ(Velmora::BControllers().size(), 3u);
    EXPECT_EQ(timesLogged("VELMORA :: ERROR :: Window is Empty!"), 3);
    // The banner that was added last is found by its window; a controller only by itself.
    EXPECT_EQ(Velmora::BControllFromWindow(window.get()), Velmora::BControllers().back().get());
    EXPECT_EQ(Velmora::BControllFromViewController(&host), nullptr);
    EXPECT_EQ(Velmora::BControllFromViewController(Velmora::BControllers().front().get()),
              Velmora::BControllers().front().get());
    EXPECT_EQ(Velmora::BControllFromWindow(static_cast<QWidget *>(nullptr)), nullptr);
}

TEST_F(BannerFacadeTest, ABannerIsHiddenThroughAnyControllerInItsWindow) {
    showOneOf({QStringLiteral("one")});
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
            AdBannerController::of(*banner).endDownloadСonfiguration();
        }
        time.advance(40);
    }
    EXPECT_TRUE(hasLogged("never shown: no view was given"));
    EXPECT_EQ(Velmora::BControllFromWindow(static_cast<QWidget *>(nullptr)), nullptr);
    EXPECT_EQ(time.timerCount(), 0u);

    // Nor does the banner become a window when the host takes its view out of the window.
    addBanner();
    ASSERT_TRUE(showsHouseBanner());
    AdBannerController *removed = current();
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

TEST_F(BannerFacadeTest, ARemovalInAnotherProcessRemovesTheBannerAtItsNextTurn) {
    showOneOf({QStringLiteral("one")});
    VLMSetObjForKey(true, QStringLiteral("adsoff"));
    time.advance(AdBannerController::SwapSeconds);
    EXPECT_TRUE(Velmora::BControllers().empty());
    Velmora::resetAds();
    Velmora::addBannerForWindow(window.get());
    EXPECT_TRUE(shows("one"));
    EXPECT_EQ(server.log().count(TablePath), 1);
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

} // namespace velmora::test
