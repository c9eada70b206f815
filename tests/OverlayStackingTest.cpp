// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/Waiting.h"

#include <QtGui/QOpenGLContext>
#include <QtGui/QOpenGLFunctions>
#include <QtGui/QPainter>
#include <QtGui/QRasterWindow>
#include <QtOpenGL/QOpenGLWindow>
#include <QtWidgets/QApplication>

#include <ostream>

namespace velmora::test {

namespace {

constexpr QColor HostColor(0x20, 0x80, 0x40);
constexpr QColor OverlayColor(0xc0, 0x10, 0x80);

int s_hostClicks = 0;

void clearToHostColor() {
    QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
    gl->glClearColor(HostColor.redF(), HostColor.greenF(), HostColor.blueF(), 1);
    gl->glClear(GL_COLOR_BUFFER_BIT);
}

// A widget or window of the host that counts its clicks.
template<class Base>
class HostContent : public Base {
protected:
    bool event(QEvent *event) override {
        s_hostClicks += event->type() == QEvent::MouseButtonPress;
        return Base::event(event);
    }
};

template<class Base>
class PaintedContent : public HostContent<Base> {
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect({}, this->size()), HostColor);
    }
};

template<class Base>
class GLContent : public HostContent<Base> {
    void paintGL() override { clearToHostColor(); }
};

QWidget *foreignNativeWidget() {
    auto *widget = new PaintedContent<QWidget>;
    widget->setAttribute(Qt::WA_DontCreateNativeAncestors);
    widget->setAttribute(Qt::WA_NativeWindow);
    return widget;
}

template<class Widget>
QWidget *make() {
    return new Widget;
}

template<class Window>
QWidget *contained() {
    return QWidget::createWindowContainer(new Window);
}

struct Content {
    const char *name;
    QWidget *(*make)();
    bool native;

    // For the message of a failed test.
    friend void PrintTo(const Content &content, std::ostream *out) { *out << content.name; }
};

const Content Contents[] = {
    {"PlainWidgets", make<PaintedContent<QWidget>>, false},
    {"NativeWidget", foreignNativeWidget, true},
    {"RasterWindow", contained<PaintedContent<QRasterWindow>>, true},
    {"OpenGLWindow", contained<GLContent<QOpenGLWindow>>, true},
};

} // namespace

/// What the display shows of an overlay over every kind of content, and where clicks arrive.
class OverlayStackingTest : public OverlayHost, public ::testing::WithParamInterface<Content> {
protected:
    OverlayStackingTest() {
        s_hostClicks = 0;
        make(Overlay::Kind::Automatic);
        view->setAutoFillBackground(true);
        view->setPalette(OverlayColor);
        delete name;
        delete city;
    }

    QWidget *addContent() {
        QWidget *widget = GetParam().make();
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
        EXPECT_EQ(overlay->isNative(), GetParam().native);
        EXPECT_TRUE(isShownEverywhere(OverlayColor));
        clickOverlayAndButton();
    }
};

TEST_P(OverlayStackingTest, AnOverlayCoversContentThatIsAddedLater) {
    overlay->setHiddenNow(false);
    EXPECT_TRUE(isShownEverywhere(OverlayColor));
    addContent();
    EXPECT_TRUE(eventually([&] { return overlay->isNative() == GetParam().native; }));
    expectOverlayOnTop();
    EXPECT_EQ(QApplication::activeWindow(), window.get());
    QWidget *second = addContent();
    handleEvents();
    second->raise();
    handleEvents();
    expectOverlayOnTop();
    window->resize(520, 410);
    handleEvents();
    expectOverlayOnTop();
}

/// The host changes its window's flags, for which Qt creates the native window again.
class OverlayRecreatedWindowTest : public OverlayStackingTest {};

TEST_P(OverlayRecreatedWindowTest, TheOverlayStaysOnTop) {
    addContent();
    overlay->setHiddenNow(false);
    window->setWindowFlag(Qt::WindowStaysOnTopHint);
    quietly(100); // too early, Qt mistakes the old native window for the new one
    window->show();
    expectOverlayOnTop();
}

const auto nameOfContent = [](const ::testing::TestParamInfo<Content> &content) {
    return content.param.name;
};
INSTANTIATE_TEST_SUITE_P(Contents, OverlayStackingTest, ::testing::ValuesIn(Contents),
                         nameOfContent);
// Not with the native widget, whose native window Qt does not create again.
INSTANTIATE_TEST_SUITE_P(Contents, OverlayRecreatedWindowTest,
                         ::testing::Values(Contents[0], Contents[2], Contents[3]), nameOfContent);

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
