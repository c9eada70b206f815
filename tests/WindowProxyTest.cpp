// SPDX-License-Identifier: Apache-2.0
#include "WindowProxy.h"
#include "SplashScreenLabelsView.h"
#include "Window.h"
#include "tests/support/ChildTest.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtGui/QInputMethodEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QRasterWindow>
#include <QtWidgets/QApplication>

namespace velmora::test {

namespace {

/// A host's window that is not a widget's.
class HostQWindow : public QRasterWindow {
public:
    HostQWindow() {
        resize(640, 480);
        show();
        requestActivate();
        handleEvents();
    }

    /// The native window over everything else in this one; null when there is none.
    const QWindow *cover() const {
        const QWindow *cover = nullptr;
        for (const QObject *child : children()) {
            const auto *window = qobject_cast<const QWindow *>(child);
            if (window && window->isVisible())
                cover = window;
        }
        return cover;
    }

    int keys = 0;
    int inputs = 0;

protected:
    bool event(QEvent *event) override {
        inputs += event->type() == QEvent::InputMethod;
        return QRasterWindow::event(event);
    }
    void keyPressEvent(QKeyEvent *) override { ++keys; }
};

void type(QWindow *window, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &release);
}

} // namespace

/// Splash screens and banners in a QWindow that is not a widget's.
class WindowProxyTest : public SplashHost {
protected:
    std::unique_ptr<HostQWindow> host = std::make_unique<HostQWindow>();
    QWidget *proxy() const { return WindowProxy::existingWidgetFor(host.get()); }

    bool isDelivered(QInputMethodEvent &event) {
        // The platform "offscreen" makes every window that is shown the focus window.
        host->requestActivate();
        handleEvents();
        EXPECT_EQ(QGuiApplication::focusObject(), host.get());
        const int before = host->inputs;
        QCoreApplication::sendEvent(host.get(), &event);
        return host->inputs > before;
    }

    void show() {
        ASSERT_TRUE(Velmora::addSplashScreenToWindow(host.get()));
        handleEvents();
        useUnplayableVideo();
        Velmora::forceShow();
        handleEvents();
        ASSERT_EQ(heard(), (QStringList{WillShow, DidShow}));
    }
};

TEST_F(WindowProxyTest, ASplashScreenCoversIt) {
    show();
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(host.get())) << "it is registered";
    ASSERT_TRUE(host->cover());
    EXPECT_EQ(host->cover()->geometry(), QRect(0, 0, 640, 480));
    EXPECT_EQ(host->minimumSize(), host->maximumSize()) << "the user can't resize it";
    host->resize(500, 400);
    handleEvents();
    EXPECT_EQ(host->cover()->geometry(), QRect(0, 0, 500, 400));
    Velmora::setSplashScreenTopInset(40, host.get());
    EXPECT_EQ(host->cover()->geometry(), QRect(0, 40, 500, 360));

    type(host.get(), Qt::Key_A);
    EXPECT_EQ(host->keys, 0) << "the keys are the splash screen's";
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("é"));
    EXPECT_FALSE(isDelivered(composed)) << "input methods write to the focus object";
    time.advance(5);
    handleEvents();
    EXPECT_EQ(heard(), QStringList{VideoStart});
    time.advance(20);
    controller(proxy()).closeSplashScreen();
    handleEvents();
    EXPECT_EQ(heard().last(), DidClose);
    EXPECT_FALSE(host->cover());
    type(host.get(), Qt::Key_A);
    EXPECT_EQ(host->keys, 1);
    EXPECT_TRUE(isDelivered(composed));
}

TEST_F(WindowProxyTest, TheHostsSizeLimitsComeBack) {
    host->setMinimumSize({300, 200});
    qApp->setStyleSheet(QStringLiteral("QWidget { max-width: 200px; min-height: 900px }"));
    show();
    EXPECT_EQ(host->size(), QSize(640, 480));
    EXPECT_EQ(host->minimumSize(), host->size());
    EXPECT_EQ(host->cover()->geometry(), QRect(0, 0, 640, 480));
    host->setMinimumSize({400, 350});
    EXPECT_EQ(host->minimumSize(), host->size());
    host->resize(500, 400);
    handleEvents();
    EXPECT_EQ(host->maximumSize(), QSize(500, 400));
    Velmora::removeSplashScreenFromWindow(host.get());
    EXPECT_EQ(host->minimumSize(), QSize(400, 350));
    EXPECT_GT(host->maximumSize().width(), 10'000);
    qApp->setStyleSheet({});
}

TEST_F(WindowProxyTest, ItsKeyStatusPausesAndResumes) {
    show();
    time.advance(2);
    const QString before = countdown(proxy());
    QWidget *other = openWindow("other");
    time.advance(10);
    EXPECT_EQ(countdown(proxy()), before);
    EXPECT_FALSE(Window::of(proxy())->isKeyWindow());
    host->requestActivate();
    handleEvents();
    EXPECT_TRUE(Window::of(proxy())->isKeyWindow());
    time.advance(1);
    EXPECT_NE(countdown(proxy()), before);
    other->close();

    host->setVisible(false);
    handleEvents();
    EXPECT_FALSE(Window::of(proxy())->isKeyWindow()) << "it is hidden";
    host->show();
    host->requestActivate();
    handleEvents();
    EXPECT_TRUE(Window::of(proxy())->isKeyWindow());
}

TEST_F(WindowProxyTest, TheHostMayCloseRecreateAndDestroyItAtAnyMoment) {
    show();
    const QPointer<QWidget> widget = proxy();
    // Without its native window the QWindow is hidden, and the native windows in it are gone.
    host->destroy();
    handleEvents();
    EXPECT_FALSE(widget->isVisible());
    host->show();
    host->requestActivate();
    handleEvents();
    ASSERT_TRUE(host->cover());
    EXPECT_EQ(host->cover()->geometry(), QRect(0, 0, 640, 480));

    int closed = 0;
    const auto observation = NotificationCenter::defaultCenter().addObserver(
        NSWindowWillCloseNotification, QVariant::fromValue<QObject *>(widget),
        [&](const Notification &) { ++closed; });
    host->close();
    handleEvents();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(Velmora::isShowSplashScreen());

    host.reset();
    handleEvents();
    EXPECT_FALSE(widget);
    time.advance(11);
    EXPECT_FALSE(Velmora::isShowSplashScreen()) << "there has been no window for ten seconds";
    Velmora::addSplashScreenToWindow(static_cast<QWindow *>(nullptr));
}

TEST_F(WindowProxyTest, ABannerLiesInItAndItsRectangleIsTold) {
    EventRecorder events;
    QList<QRect> rects;
    QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::windowBannerRectChanged,
                     host.get(), [&](QWindow *window, const QRect &rect) {
                         EXPECT_EQ(window, host.get());
                         rects.append(rect);
                     });
    Velmora::addBannerForWindow(host.get());
    BannerController *banner = Velmora::BControllFromWindow(host.get());
    ASSERT_TRUE(banner);
    EXPECT_EQ(banner->windowHandle(), host.get());
    EXPECT_EQ(banner->window(), nullptr);
    time.advance(15); // a house banner is shown when the ad server has not answered
    ASSERT_TRUE(eventually([&] { return !rects.isEmpty(); }));
    EXPECT_EQ(rects.last(), banner->rectInWindow());
    handleEvents();
    ASSERT_TRUE(host->cover());
    EXPECT_TRUE(banner->rectInWindow().contains(host->cover()->geometry()));
    Velmora::setBannerSmallImageToWindow(host.get());
    handleEvents();
    EXPECT_EQ(host->cover()->height(), 60);
    EXPECT_TRUE(events.rects().isEmpty()) << "that is for widgets";

    Velmora::addBannerForWindow(host.get());
    EXPECT_EQ(events.refusals(), QStringList{QStringLiteral("AddBanner AlreadyAdded")});
    host.reset();
    EXPECT_TRUE(Velmora::BControllers().empty());
}

TEST_F(WindowProxyTest, TheQWindowOfAWidgetMeansTheWidget) {
    QWidget *widget = openWindow("widget");
    EXPECT_TRUE(Velmora::addSplashScreenToWindow(widget->windowHandle()));
    EXPECT_EQ(&controller(widget), &controller(WindowProxy::widgetFor(widget->windowHandle())));
    // In another window now, it keeps its splash screen.
    ASSERT_TRUE(Velmora::addSplashScreenToWindow(host.get()));
    QWidget *own = proxy();
    host->setParent(widget->windowHandle());
    EXPECT_EQ(proxy(), own);
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(host.get()));
    host->setParent(nullptr);
    auto *contained = new QRasterWindow;
    QWidget::createWindowContainer(contained, widget);
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(contained)) << "the container was not shown yet";
    QWindow child(widget->windowHandle());
    EXPECT_EQ(WindowProxy::widgetFor(&child), widget);
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(&child));
    child.setParent(host.get());
    EXPECT_EQ(WindowProxy::widgetFor(&child), WindowProxy::widgetFor(host.get()));
    EXPECT_EQ(WindowProxy::hostOf(proxy()), host.get());
}

TEST(GuiApplicationHost, DISABLED_GetsNothing) {
    LateApplication<QGuiApplication> application;
    HostQWindow window;
    EXPECT_FALSE(Velmora::addSplashScreenToWindow(&window));
    Velmora::addBannerForWindow(&window);
    Velmora::forceShow();
    EXPECT_TRUE(window.children().isEmpty());
    sayPartDone();
}

TEST_F(WindowProxyTest, NothingIsMadeWithoutAQApplication) {
    runUnnamedChildTest(QStringLiteral("GuiApplicationHost.*"), cachesFolder());
}

} // namespace velmora::test
