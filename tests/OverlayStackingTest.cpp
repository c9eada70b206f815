// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/Waiting.h"

#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtWidgets/QApplication>

#include <memory>

namespace velmora::test {

namespace {

constexpr QColor HostColor(0x20, 0x80, 0x40);
constexpr QColor OverlayColor(0xc0, 0x10, 0x80);

int s_hostClicks = 0;

// A widget or window of the host that counts its clicks.
template<class Base>
class Content : public Base {
protected:
    bool event(QEvent *event) override {
        s_hostClicks += event->type() == QEvent::MouseButtonPress;
        return Base::event(event);
    }
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect({}, this->size()), HostColor);
    }
};

QWidget *nativeWidget() {
    auto *widget = new Content<QWidget>;
    widget->setAttribute(Qt::WA_DontCreateNativeAncestors);
    widget->setAttribute(Qt::WA_NativeWindow);
    return widget;
}

QWidget *windowContainer() {
    return QWidget::createWindowContainer(new Content<QRasterWindow>);
}

} // namespace

/// What the display shows of an overlay over native windows that come later, and where clicks
/// arrive.
class OverlayStackingTest : public OverlayHost {
protected:
    OverlayStackingTest() {
        s_hostClicks = 0;
        make(Overlay::Kind::Automatic);
        view->setAutoFillBackground(true);
        view->setPalette(OverlayColor);
        delete name;
        delete city;
    }

    QWidget *add(QWidget *widget) {
        widget->setParent(content);
        widget->setGeometry(content->rect());
        widget->show();
        return widget;
    }

    bool isShownEverywhere(const QColor &color) const {
        const QRect area = content->rect().adjusted(3, 3, -3, -3);
        return eventually([&] {
            for (const QPoint &point : {area.topLeft(), area.topRight(), area.bottomLeft(),
                                        area.bottomRight(), area.center()}) {
                if (colorOnDisplay(content, point) != color)
                    return false;
            }
            return true;
        });
    }

    void clickOverlayAndButton() {
        clicked.clear();
        clickOnDisplay(content, content->rect().center());
        clickOnDisplay(content, overlay->frame().topLeft() + close->geometry().center());
        EXPECT_TRUE(eventually([&] { return clicked.size() == 1; }));
        EXPECT_EQ(s_hostClicks, 0);
    }
    void expectOverlayOnTop() {
        EXPECT_TRUE(overlay->isNative());
        EXPECT_TRUE(isShownEverywhere(OverlayColor));
        clickOverlayAndButton();
    }
};

TEST_F(OverlayStackingTest, AnOverlayCoversContentThatIsAddedLater) {
    for (const auto makeContent : {nativeWidget, windowContainer}) {
        overlay->setHiddenNow(false);
        EXPECT_TRUE(isShownEverywhere(OverlayColor));
        const std::unique_ptr<QWidget> first(add(makeContent()));
        EXPECT_TRUE(eventually([&] { return overlay->isNative(); }));
        expectOverlayOnTop();
        EXPECT_EQ(QApplication::activeWindow(), window.get());
        const std::unique_ptr<QWidget> second(add(makeContent()));
        handleEvents();
        second->raise();
        handleEvents();
        expectOverlayOnTop();
        window->resize(window->size() + QSize(120, 110));
        handleEvents();
        expectOverlayOnTop();
        overlay->setHiddenNow(true);
        time.advance(1); // the second click of a double click would be dropped
    }
}

TEST_F(OverlayStackingTest, AnOverlayStaysOnTopWhenTheHostsNativeWindowIsCreatedAgain) {
    add(windowContainer());
    overlay->setHiddenNow(false);
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    quietly(100); // too early, Qt mistakes the old native window for the new one
    window->show();
    expectOverlayOnTop();
}

/// The overlay of a window that is registered as a game engine's.
class OverlayNativeTest : public OverlayHost {};

TEST_F(OverlayNativeTest, KeysOfTheDisplayReachItsButtons) {
    make(Overlay::Kind::Native);
    overlay->setHiddenNow(false);
    EXPECT_TRUE(overlay->isNative());
    handleEvents();
    runOnDisplay(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Tab"),
                                             QStringLiteral("Tab"), QStringLiteral("space")});
    EXPECT_TRUE(eventually([&] { return clicked == QStringList{QStringLiteral("more")}; }));
    EXPECT_EQ(QApplication::activeWindow(), window.get());
}

} // namespace velmora::test
