// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "Workspace.h"
#include "quick/BannerItem.h"
#include "quick/EventTypes.h"
#include "quick/VelmoraSingleton.h"
#include "tests/support/ChildTest.h"
#include "tests/support/LocalAdServer.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtCore/QTemporaryDir>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace velmora::test {

namespace {

constexpr QRgb HostColor = qRgb(255, 0, 255);

constexpr char Host[] = R"(
import QtQuick
import Velmora

Window {
    id: window
    property int removals: 0
    property int clicksBehind: 0
    property bool refusedForRemovedAds: false
    property alias banner: loader.item
    property alias hasBanner: loader.active
    property bool isAdded: Velmora.addSplashScreenToWindow(window)
    width: 1000
    height: 400
    visible: true
    color: "#ff00ff"

    MouseArea {
        anchors.fill: parent
        onClicked: ++window.clicksBehind
    }
    Loader {
        id: loader
        anchors.fill: parent
        sourceComponent: Banner { bannerHeight: 90 }
    }
    Connections {
        target: Velmora
        function onRemoveAdsClicked() { ++window.removals }
        function onRefused(request, reason, text) {
            if (reason === VelmoraEvents.AdsRemoved)
                window.refusedForRemovedAds = true
        }
    }
}
)";

/// The host's window, from an engine of its own.
class QuickHost {
public:
    QuickHost() {
        qmlRegisterModule("Velmora", 3, 5);
        qmlRegisterTypesAndRevisions<BannerItem, VelmoraSingleton, EventTypes>("Velmora", 3);
        QQmlComponent component(engine.get());
        component.setData(Host, QUrl(QStringLiteral("qrc:/Host.qml")));
        window.reset(qobject_cast<QQuickWindow *>(component.create()));
        EXPECT_TRUE(window) << component.errorString().toStdString();
    }

    BannerItem *banner() const { return window->property("banner").value<BannerItem *>(); }

    std::unique_ptr<QQmlEngine> engine = std::make_unique<QQmlEngine>();
    std::unique_ptr<QQuickWindow> window;
};

class PaintCount : public QObject {
public:
    bool eventFilter(QObject *, QEvent *event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

bool isAnyBannerLeft() {
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [](const QWidget *widget) {
        return qobject_cast<const BannerPlace *>(widget) ||
               qobject_cast<const BannerImageView *>(widget);
    });
}

} // namespace

class QuickBannerTest : public LocalAdServer {
protected:
    QuickBannerTest() {
        // Can be set only before the first window of the process.
        [[maybe_unused]] static const bool isSet = [] {
            QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
            return true;
        }();
        Workspace::setOpener([this](const QUrl &link) {
            opened.append(link);
            return true;
        });
    }
    ~QuickBannerTest() override {
        host.reset();
        Workspace::setOpener(nullptr);
        restartProcess();
    }

    /// Opens the host's window and waits until its picture is on screen.
    void open() {
        host = std::make_unique<QuickHost>();
        ASSERT_TRUE(eventually([this] { return host->banner()->isShown(); }));
        time.advance(1); // the banner fades in
        ASSERT_TRUE(
            eventually([this] { return colorAt(host->banner()->rect().center()) != HostColor; }));
    }

    /// What the window shows, in the screen's pixels.
    QImage grab() const {
        QImage screen = host->window->grabWindow();
        // The software renderer leaves the ratio at 1.
        screen.setDevicePixelRatio(double(screen.width()) / host->window->width());
        return screen;
    }
    QRgb colorAt(const QPointF &position) const {
        const QImage screen = grab();
        return screen.pixel((position * screen.devicePixelRatio()).toPoint());
    }

    static AdBannerController &controller() {
        return AdBannerController::of(*Velmora::BControllers().front());
    }
    QPoint closeButton() const {
        const QWidget *button = controller().closeButton();
        return button->mapTo(button->window(), button->rect().center());
    }
    void click(const QPoint &point) const {
        QTest::mouseClick(host->window.get(), Qt::LeftButton, {}, point);
        handleEvents();
    }
    int count(const char *property) const { return host->window->property(property).toInt(); }

    VirtualTime time;
    std::unique_ptr<QuickHost> host;
    QList<QUrl> opened;
};

TEST_F(QuickBannerTest, TheItemShowsTheHouseBannerAtItsBottomAndNothingElse) {
    server.stop();
    open();
    const QRect rect = host->banner()->rect().toAlignedRect();
    EXPECT_EQ(rect.bottom(), 399);
    EXPECT_EQ(rect.height(), 94);
    EXPECT_EQ(host->banner()->implicitHeight(), 94);
    EXPECT_EQ(host->banner()->adName(), controller().selectBanner());
    const QImage screen = grab();
    const double scale = screen.devicePixelRatio();
    const QRect place = QRectF(rect.topLeft() * scale, rect.size() * scale).toRect();
    int covered = 0;
    int stray = 0;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            if (screen.pixel(x, y) != HostColor)
                ++(place.contains(x, y) ? covered : stray);
        }
    }
    EXPECT_EQ(stray, 0);
    EXPECT_GT(covered, place.width() * place.height() * 97 / 100);
}

TEST_F(QuickBannerTest, ClicksReachThePictureTheCloseButtonAndTheItemsBehind) {
    serve({banner("one")});
    open();
    const QPoint picture = host->banner()->rect().center().toPoint();
    const QPoint free(20, 20);
    time.advance(1); // clicks on a banner that has just appeared are ignored
    click(picture);
    EXPECT_EQ(opened.size(), 1);
    EXPECT_EQ(host->banner()->cursor().shape(), Qt::PointingHandCursor);
    time.advance(1);
    QTest::mouseDClick(host->window.get(), Qt::LeftButton, {}, picture);
    handleEvents();
    EXPECT_EQ(opened.size(), 2);

    time.advance(1);
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    QTest::touchEvent(host->window.get(), screen.get()).press(0, picture);
    QTest::touchEvent(host->window.get(), screen.get()).release(0, picture);
    handleEvents();
    EXPECT_EQ(opened.size(), 3);

    // A press that ends elsewhere is no click.
    time.advance(1);
    QTest::mousePress(host->window.get(), Qt::LeftButton, {}, picture);
    QTest::mouseMove(host->window.get(), free);
    QTest::mouseRelease(host->window.get(), Qt::LeftButton, {}, free);
    handleEvents();
    EXPECT_EQ(opened.size(), 3);

    click(closeButton());
    EXPECT_EQ(count("removals"), 1);
    EXPECT_EQ(opened.size(), 3);
    EXPECT_EQ(count("clicksBehind"), 0);
    click(free);
    EXPECT_EQ(count("clicksBehind"), 1);
    EXPECT_EQ(host->banner()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(QuickBannerTest, NothingIsDrawnWhileTheItemCannotBeSeen) {
    serve({banner("one"), banner("two")});
    open();
    const auto set = [this](const char *property, bool value) {
        host->banner()->setProperty(property, value);
    };
    const std::pair<std::function<void()>, std::function<void()>> ways[] = {
        {[&] { host->window->hide(); }, [&] { host->window->show(); }},
        {[&] { host->window->showMinimized(); }, [&] { host->window->showNormal(); }},
        {[&] { set("visible", false); }, [&] { set("visible", true); }},
        {[&] { set("hidden", true); }, [&] { set("hidden", false); }}};
    PaintCount paints;
    controller().bannerImage()->installEventFilter(&paints);
    for (const auto &[away, back] : ways) {
        const QString last = host->banner()->adName();
        away();
        handleEvents();
        paints.count = 0;
        // The rotation rests from its next turn on, and the animation after a frame.
        EXPECT_TRUE(eventually([this] {
            time.advance(20);
            return time.timerCount() == 0;
        }));
        EXPECT_EQ(paints.count, 0);
        EXPECT_EQ(host->banner()->adName(), last);
        back();
        EXPECT_TRUE(eventually([&] { return host->banner()->adName() != last; }));
        EXPECT_TRUE(host->banner()->isShown());
        EXPECT_TRUE(eventually([&] { return paints.count > 0; }));
    }
}

TEST_F(QuickBannerTest, AClickMayDestroyTheItemItsWindowAndTheEngine) {
    server.stop();
    const std::function<void()> ways[] = {[this] { host->window->setProperty("hasBanner", false); },
                                          [this] { host->window.reset(); },
                                          [this] { host.reset(); },
                                          [this] { // a dialog, during which the window is closed
                                              host.reset();
                                              handleEvents();
                                          }};
    for (const auto &way : ways) {
        open();
        QObject context;
        QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::removeAdsClicked, &context,
                         way);
        click(closeButton());
        EXPECT_TRUE(eventually([] { return !isAnyBannerLeft(); }));
        host.reset();
    }
}

TEST_F(QuickBannerTest, WithoutAdsTheItemIsEmpty) {
    server.stop();
    open();
    Velmora::removeAdsNow();
    handleEvents();
    time.advance(1);
    EXPECT_TRUE(eventually([] { return !isAnyBannerLeft(); }));
    EXPECT_FALSE(host->banner()->isShown());
    EXPECT_EQ(host->banner()->adName(), QString());
    EXPECT_EQ(host->banner()->rect(), QRectF());
    EXPECT_EQ(host->banner()->implicitHeight(), 0);
    handleEvents();
    EXPECT_EQ(colorAt({500, 350}), HostColor);
    Velmora::show();
    handleEvents();
    EXPECT_TRUE(host->window->property("refusedForRemovedAds").toBool());

    Velmora::resetAds();
    host->banner()->setVisible(false);
    host->banner()->setVisible(true);
    EXPECT_TRUE(eventually([this] { return host->banner()->isShown(); }));
}

TEST_F(QuickBannerTest, WithoutWidgetsNothingIsMadeAndTheLogSaysWhy) {
    const QTemporaryDir folder;
    runUnnamedChildTest(QStringLiteral("QuickBannerTest.DISABLED_Child"), folder.path());
}

TEST_F(QuickBannerTest, DISABLED_Child) {
    const LateApplication<QGuiApplication> application;
    host = std::make_unique<QuickHost>();
    quietly(50);
    EXPECT_FALSE(host->window->property("isAdded").toBool());
    EXPECT_FALSE(host->banner()->isShown());
    EXPECT_EQ(timesLogged("QApplication"), 1);
    host.reset();
    sayPartDone();
}

} // namespace velmora::test
