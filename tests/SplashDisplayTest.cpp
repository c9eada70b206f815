// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OwnDisplay.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace velmora::test {

namespace {

// Stands for a game engine: a native child window.
class Engine : public QRasterWindow {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect({}, size()), Qt::darkGreen);
    }
};

} // namespace

/// Splash screens over native child windows and main windows, as seen on a real display.
class SplashDisplayTest : public SplashHost, public ::testing::WithParamInterface<bool> {
protected:
    static bool shows(const QWidget *widget, const QColor &color, QPoint point = {20, 20}) {
        return eventually([&] { return colorOnDisplay(widget, point) == color; });
    }

    static void clickOn(const QWidget *button) { clickOnDisplay(button, button->rect().center()); }

    static bool becomesKey(QWidget *window) {
        return eventually([window] {
            if (!window->isActiveWindow())
                window->activateWindow();
            return presenter().isFocus();
        });
    }

    QWidget *window = openWindow("game");
};

TEST_P(SplashDisplayTest, ItCoversAnEngineAndIsClosedByTheMouse) {
    auto *column = new QVBoxLayout(window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(QWidget::createWindowContainer(new Engine, window));
    ASSERT_TRUE(shows(window, Qt::darkGreen));
    if (GetParam())
        EXPECT_TRUE(Velmora::addSplashScreenToUnityWindow(window));
    else
        EXPECT_TRUE(Velmora::addSplashScreenToWindow(window));
    EXPECT_EQ(controller(window).isUnityWindow(), GetParam());
    ASSERT_TRUE(becomesKey(window));

    Velmora::forceShow();
    time.advance(1);
    EXPECT_TRUE(controller(window).overlay()->isNative());
    EXPECT_TRUE(shows(window, Qt::white));
    time.advance(10);
    const QWidget *close = controller(window).outlets().closeButton;
    ASSERT_TRUE(eventually([close] { return close->isVisible(); }));
    heard();
    clickOn(close);
    EXPECT_TRUE(eventually([] { return !Velmora::isShowSplashScreen(); }));
    EXPECT_EQ(heard(), (QStringList{DidClose}));
    EXPECT_TRUE(shows(window, Qt::darkGreen));
}

TEST_P(SplashDisplayTest, ItCoversAMainWindowBelowItsMenuBar) {
    QMainWindow main;
    main.menuBar()->setNativeMenuBar(false);
    main.menuBar()->addMenu(QStringLiteral("File"));
    auto *dock = new QDockWidget;
    auto *inDock = new QPushButton(QStringLiteral("in the dock"));
    inDock->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    dock->setWidget(inDock);
    main.addDockWidget(Qt::LeftDockWidgetArea, dock);
    if (GetParam())
        main.setCentralWidget(QWidget::createWindowContainer(new Engine));
    else
        main.setCentralWidget(new QLabel(QStringLiteral("content")));
    int hostClicks = 0;
    QObject::connect(inDock, &QPushButton::clicked, [&hostClicks] { ++hostClicks; });
    main.resize(600, 400);
    main.show();
    Velmora::addSplashScreenToWindow(&main);
    ASSERT_TRUE(becomesKey(&main));
    const QPoint inMenu = main.menuBar()->rect().center();
    const QColor menuColor = main.palette().color(QPalette::Window);
    ASSERT_TRUE(shows(main.menuBar(), menuColor, inMenu));

    Velmora::forceShow();
    time.advance(1);
    EXPECT_EQ(controller(&main).overlay()->isNative(), GetParam());
    for (const QWidget *covered : {static_cast<QWidget *>(inDock), main.centralWidget()})
        EXPECT_TRUE(shows(covered, Qt::white));
    EXPECT_EQ(colorOnDisplay(main.menuBar(), inMenu), menuColor);
    // New content of the host is covered as well.
    main.setCentralWidget(new QLabel(QStringLiteral("new content")));
    EXPECT_TRUE(shows(main.centralWidget(), Qt::white));
    clickOn(inDock);
    time.advance(10);
    const QWidget *close = controller(&main).outlets().closeButton;
    ASSERT_TRUE(eventually([close] { return close->isVisible(); }));
    clickOn(close);
    EXPECT_TRUE(eventually([] { return !Velmora::isShowSplashScreen(); }));
    EXPECT_EQ(hostClicks, 0);
    time.advance(1);
    clickOn(inDock);
    EXPECT_TRUE(eventually([&hostClicks] { return hostClicks == 1; }));
}

INSTANTIATE_TEST_SUITE_P(Registered, SplashDisplayTest, ::testing::Bool(),
                         [](const auto &tested) { return tested.param ? "AsUnity" : "Plainly"; });

} // namespace velmora::test
