#include "tests/support/OwnDisplay.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtGui/QScreen>
#include <QtWidgets/QVBoxLayout>

namespace velmora::test {

namespace {

// A game's picture.
class Engine : public QRasterWindow {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect({}, size()), Qt::darkGreen);
    }
};

} // namespace

/// A splash screen over a window that a game engine fills, as it is seen on a real screen.
class SplashDisplayTest : public SplashHost, public ::testing::WithParamInterface<bool> {
protected:
    bool isSeen(const QColor &color, QPoint place) const {
        const QPoint point = window->mapToGlobal(place);
        return window->screen()
                   ->grabWindow(0, point.x(), point.y(), 1, 1)
                   .toImage()
                   .pixelColor(0, 0) == color;
    }

    void clickOn(const QWidget *button) {
        const QPoint point = button->mapToGlobal(button->rect().center());
        runOnDisplay(QStringLiteral("xdotool"),
                     {QStringLiteral("mousemove"), QString::number(point.x()),
                      QString::number(point.y()), QStringLiteral("click"), QStringLiteral("1")});
    }

    QWidget *window = openWindow(QStringLiteral("game"));
};

TEST_P(SplashDisplayTest, ItCoversAnEngineAndIsClosedByTheMouse) {
    auto *column = new QVBoxLayout(window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(QWidget::createWindowContainer(new Engine, window));
    ASSERT_TRUE(eventually([this] { return isSeen(Qt::darkGreen, {20, 20}); }));
    if (GetParam())
        EXPECT_TRUE(Velmora::addSplashScreenToUnityWindow(window));
    else
        EXPECT_TRUE(Velmora::addSplashScreenToWindow(window));
    EXPECT_EQ(controller(window).isUnityWindow(), GetParam());
    ASSERT_TRUE(eventually([this] {
        if (!window->isActiveWindow())
            window->activateWindow();
        return presenter().isFocus();
    }));

    Velmora::forceShow();
    time.advance(1);
    EXPECT_TRUE(controller(window).overlay()->isNative());
    EXPECT_TRUE(eventually([this] { return isSeen(Qt::white, {20, 20}); }));
    time.advance(10);
    ASSERT_TRUE(
        eventually([this] { return controller(window).outlets().closeButton->isVisible(); }));
    heard();
    clickOn(controller(window).outlets().closeButton);
    EXPECT_TRUE(eventually([] { return !Velmora::isShowSplashScreen(); }));
    EXPECT_EQ(heard(), (QStringList{QStringLiteral("splashscreendidclose")}));
    EXPECT_TRUE(eventually([this] { return isSeen(Qt::darkGreen, {20, 20}); }));
}

INSTANTIATE_TEST_SUITE_P(Registered, SplashDisplayTest, ::testing::Bool(),
                         [](const auto &tested) { return tested.param ? "AsUnity" : "Plainly"; });

} // namespace velmora::test
