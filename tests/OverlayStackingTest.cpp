// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/Waiting.h"

#include <QtGui/QBackingStore>
#include <QtGui/QOpenGLContext>
#include <QtGui/QOpenGLFunctions>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtOpenGL/QOpenGLWindow>
#include <QtOpenGLWidgets/QOpenGLWidget>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollArea>

#include <cmath>
#include <ostream>

namespace velmora::test {

namespace {

constexpr QRgb HostColor = 0xff208040;
constexpr QRgb OverlayColor = 0xffc01080;

int s_hostClicks = 0;

void countClick(const QEvent *event) {
    if (event->type() == QEvent::MouseButtonPress)
        ++s_hostClicks;
}

void clearToHostColor() {
    QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
    const QColor color(HostColor);
    gl->glClearColor(color.redF(), color.greenF(), color.blueF(), 1);
    gl->glClear(GL_COLOR_BUFFER_BIT);
}

class PlainContent : public QWidget {
public:
    using QWidget::QWidget;

protected:
    bool event(QEvent *event) override {
        countClick(event);
        return QWidget::event(event);
    }
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), QColor(HostColor)); }
};

class GLWidgetContent : public QOpenGLWidget {
public:
    using QOpenGLWidget::QOpenGLWidget;

protected:
    bool event(QEvent *event) override {
        countClick(event);
        return QOpenGLWidget::event(event);
    }
    void paintGL() override { clearToHostColor(); }
};

class GLWindowContent : public QOpenGLWindow {
protected:
    bool event(QEvent *event) override {
        countClick(event);
        return QOpenGLWindow::event(event);
    }
    void paintGL() override { clearToHostColor(); }
};

class RasterWindowContent : public QWindow {
public:
    RasterWindowContent() : m_store(this) {}

protected:
    bool event(QEvent *event) override {
        countClick(event);
        if (event->type() == QEvent::Expose && isExposed()) {
            m_store.resize(size());
            const QRect whole({}, size());
            m_store.beginPaint(whole);
            QPainter(m_store.paintDevice()).fillRect(whole, QColor(HostColor));
            m_store.endPaint();
            m_store.flush(whole);
        }
        return QWindow::event(event);
    }

private:
    QBackingStore m_store;
};

QWidget *scrollArea() {
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *page = new PlainContent;
    page->setMinimumSize(2000, 2000);
    area->setWidget(page);
    return area;
}

QWidget *foreignNativeWidget() {
    auto *widget = new PlainContent;
    widget->setAttribute(Qt::WA_DontCreateNativeAncestors);
    widget->setAttribute(Qt::WA_NativeWindow);
    return widget;
}

struct Content {
    const char *name;
    QWidget *(*make)();
    bool native;

    // For the message of a failed test.
    friend void PrintTo(const Content &content, std::ostream *out) { *out << content.name; }
};

const Content Contents[] = {
    {"PlainWidgets", [] { return static_cast<QWidget *>(new PlainContent); }, false},
    {"ScrollArea", scrollArea, false},
    {"OpenGLWidget", [] { return static_cast<QWidget *>(new GLWidgetContent); }, false},
    {"NativeWidget", foreignNativeWidget, true},
    {"RasterWindow", [] { return QWidget::createWindowContainer(new RasterWindowContent); }, true},
    {"OpenGLWindow", [] { return QWidget::createWindowContainer(new GLWindowContent); }, true},
};

} // namespace

/// What the display shows of an overlay over every kind of content, and where clicks arrive.
class OverlayStackingTest : public OverlayHost, public ::testing::WithParamInterface<Content> {
protected:
    OverlayStackingTest() {
        s_hostClicks = 0;
        make(Overlay::Kind::Automatic);
        view->setAutoFillBackground(true);
        view->setPalette(QColor(OverlayColor));
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

    static QRgb colorAt(const QWidget *place, const QPoint &point) {
        const QPoint global = place->mapToGlobal(point);
        const QImage pixel =
            QApplication::primaryScreen()->grabWindow(0, global.x(), global.y(), 1, 1).toImage();
        return pixel.pixel(0, 0) | 0xff000000;
    }
    bool isShownEverywhere(QRgb color) const {
        const QRect area = content->rect().adjusted(3, 3, -3, -3);
        return eventually([&] {
            for (const QPoint &point : {area.topLeft(), area.topRight(), area.bottomLeft(),
                                        area.bottomRight(), area.center()}) {
                if (colorAt(content, point) != color)
                    return false;
            }
            return true;
        });
    }

    static void click(const QPoint &global) {
        runOnDisplay(QStringLiteral("xdotool"),
                     {QStringLiteral("mousemove"), QString::number(global.x()),
                      QString::number(global.y()), QStringLiteral("click"), QStringLiteral("1")});
    }
    void clickOverlayAndButton() {
        clicked.clear();
        click(content->mapToGlobal(content->rect().center()));
        click(content->mapToGlobal(overlay->frame().topLeft() + close->geometry().center()));
        EXPECT_TRUE(eventually([&] { return clicked.size() == 1; }));
        EXPECT_EQ(s_hostClicks, 0);
    }
    void expectOverlayOnTop() {
        EXPECT_EQ(overlay->isNative(), GetParam().native);
        EXPECT_TRUE(isShownEverywhere(OverlayColor));
        clickOverlayAndButton();
    }
};

TEST_P(OverlayStackingTest, AnOverlayCoversContentThatExistsBeforeIt) {
    addContent();
    EXPECT_TRUE(isShownEverywhere(HostColor));
    overlay->setHiddenNow(false);
    expectOverlayOnTop();
    window->resize(520, 410);
    handleEvents();
    expectOverlayOnTop();
    EXPECT_EQ(QApplication::activeWindow(), window.get());

    overlay->setHiddenNow(true);
    content->findChild<QWidget *>()->resize(content->size());
    EXPECT_TRUE(isShownEverywhere(HostColor));
    click(content->mapToGlobal(content->rect().center()));
    EXPECT_TRUE(eventually([&] { return s_hostClicks == 1; }));
    EXPECT_EQ(clicked.size(), 1);
}

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
                         ::testing::Values(Contents[0], Contents[1], Contents[2], Contents[4],
                                           Contents[5]),
                         nameOfContent);

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
