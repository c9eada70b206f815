// SPDX-License-Identifier: Apache-2.0
#include "Window.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

namespace velmora::test {

class SplashScreenWindowsTest : public RegisteredHost {};

TEST_F(SplashScreenWindowsTest, AnyWidgetOfAWindowNamesThatWindow) {
    auto *inner = new QWidget(new QWidget(window));
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(inner)) << "its window is registered";
    Velmora::setSplashScreenTopInset(30, inner);
    EXPECT_EQ(controller(window).topInset(), 30);
    Velmora::removeSplashScreenFromWindow(inner);
    EXPECT_TRUE(presenter().SSControllers().empty());
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(inner));
    EXPECT_EQ(presenter().splashScreenControllerWithWindow(inner)->window(), window);
    EXPECT_TRUE(presenter().isFocus());
}

TEST_F(SplashScreenWindowsTest, TheDelayBeforeTheFirstSequenceRunsAgainOnceNoWindowIsRegistered) {
    time.advance(20);
    openRegistered("second");
    time.advance(10);
    EXPECT_TRUE(Velmora::isADSReady());
    Velmora::forceShow();
    presenter().removeAllSplashScreens();
    EXPECT_FALSE(Velmora::isShowSplashScreen());
    EXPECT_TRUE(presenter().SSControllers().empty());
    EXPECT_FALSE(Velmora::isADSReady());
    QWidget *third = openRegistered("third");
    time.advance(30);
    EXPECT_TRUE(Velmora::isADSReady());
    // A window that is registered again is observed once.
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(window));
    activate(third);
    activate(window);
    EXPECT_EQ(presenter().activeSplashScreenController()->window(), window);
}

TEST_F(SplashScreenWindowsTest, AClosedWindowIsRemovedOnlyWithAutoRemovalOn) {
    QWidget *second = openRegistered("second");
    second->close();
    handleEvents();
    EXPECT_NE(presenter().splashScreenControllerWithWindow(second), nullptr);
    second->show();
    activate(second);
    Velmora::setARCToWindows(true);
    second->close();
    EXPECT_NE(presenter().splashScreenControllerWithWindow(second), nullptr) << "a turn later";
    handleEvents();
    EXPECT_EQ(presenter().splashScreenControllerWithWindow(second), nullptr);
}

TEST_F(SplashScreenWindowsTest, AWindowWithNewContentKeepsItsSplashScreen) {
    auto *main = new QMainWindow;
    main->setCentralWidget(new QWidget);
    QWidget *second = openWindow("second");
    QWidget *content = nullptr;
    std::unique_ptr<ViewController> contentController;
    const auto replaceContentOfSecond = [&] {
        delete content;
        content = new QWidget(second);
        content->resize(second->size());
        content->show();
        contentController = std::make_unique<ViewController>(content);
        contentController->setContentOf(second);
    };
    replaceContentOfSecond();
    main->show();
    activate(main);
    Velmora::addSplashScreenToWindow(second);
    Velmora::addSplashScreenToWindow(main);
    useUnplayableVideo();
    const auto covers = [](QWidget *covered) {
        const Overlay *overlay = controller(covered).overlay();
        const QWidget *view = controller(covered).viewIfLoaded();
        const QWidget *hit = covered->childAt(covered->rect().center());
        return !overlay->isHidden() && view && view->isVisible() && hit &&
               (hit == view || view->isAncestorOf(hit));
    };
    Velmora::forceShow();
    for (const double moment : {1.0, 5.0, 6.0}) {
        time.advance(moment);
        auto *next = new QLabel(QStringLiteral("new content"));
        main->setCentralWidget(next);
        next->setFocus();
        replaceContentOfSecond();
        handleEvents();
        EXPECT_TRUE(covers(main)) << moment;
        EXPECT_TRUE(covers(second)) << moment;
        EXPECT_EQ(controller(second).overlay()->superview(), content);
        main->takeCentralWidget()->deleteLater();
        handleEvents();
        EXPECT_TRUE(covers(main)) << moment;
    }
    EXPECT_NE(controller(main).playerlayer(), nullptr) << "the video plays on";
    controller(second).outlets().closeButton->click();
    time.advance(1);
    EXPECT_FALSE(controller(main).view()->isVisible());
    // When the host has destroyed the view itself, the window can be registered again.
    delete controller(second).view();
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(second));
    EXPECT_EQ(presenter().SSControllers().size(), 3u);
    delete main;
}

} // namespace velmora::test
