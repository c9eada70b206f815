// SPDX-License-Identifier: Apache-2.0
#include "tests/support/HostLook.h"
#include "BannerImageView.h"
#include "BannerShadowView.h"
#include "FadeEffect.h"
#include "tests/support/BannerHost.h"
#include "tests/support/SplashHost.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

namespace velmora::test {

namespace {

/// Gives a host each hostile look, on the application and on a window, while everything is shown.
/// @param check called with each look, and when it is gone again
void tryEveryLook(const HostLook &look, QWidget *window, const std::function<void()> &check) {
    for (const QString &sheet : HostLook::styleSheets(window->size())) {
        SCOPED_TRACE(qPrintable(sheet));
        for (const QString &now : {sheet, QString()}) {
            qApp->setStyleSheet(now);
            handleEvents();
            check();
        }
        for (const QString &now : {sheet, QString()}) {
            window->setStyleSheet(now);
            handleEvents();
            check();
        }
    }
    SCOPED_TRACE("palettes and reading direction");
    QApplication::setPalette(HostLook::darkPalette());
    QApplication::setLayoutDirection(Qt::RightToLeft);
    handleEvents();
    check();
    look.restore();
    window->setPalette(HostLook::darkPalette());
    check();
    window->setPalette({});
}

} // namespace

/// Splash screens in hosts that have a look of their own. With true, the splash screen has a native
/// window of its own.
class HostLookTest : public SplashHost, public ::testing::WithParamInterface<bool> {
protected:
    QWidget *addWindow() {
        QImage icon(128, 128, QImage::Format_RGB32);
        icon.fill(Qt::red);
        Velmora::setSplashScreenIcon(icon);
        useUnplayableVideo();
        QWidget *window = openWindow("host");
        if (GetParam())
            Velmora::addSplashScreenToUnityWindow(window);
        else
            Velmora::addSplashScreenToWindow(window);
        handleEvents();
        return window;
    }

    // Until it is first drawn: its animations begin then.
    void show(QWidget *window) {
        Velmora::forceShow();
        ASSERT_TRUE(eventually([&] {
            const QWidget *view = controller(window).view();
            const auto *fade = qobject_cast<FadeEffect *>(view->graphicsEffect());
            return !fade || !fade->picture().isNull();
        }));
    }

    HostLook look;
};

TEST_P(HostLookTest, ReachesNothingOfASplashScreen) {
    QWidget *window = addWindow();
    QWidget *view = controller(window).view();
    Velmora::forceShow();
    for (const char *phase : {"start", "video", "end"}) {
        SCOPED_TRACE(phase);
        time.advance(phase == std::string("start") ? 2 : 5);
        if (phase == std::string("end"))
            controller(window).didVideoEnded();
        time.advance(0.5);
        handleEvents();
        const Sight usual(view);
        const Sight around(view->parentWidget()); // the root of a native window
        const QRect place = controller(window).overlay()->frame();
        tryEveryLook(look, window, [&] {
            EXPECT_EQ(Sight(view), usual);
            EXPECT_EQ(controller(window).overlay()->frame(), place);
            if (GetParam()) {
                EXPECT_EQ(Sight(view->parentWidget()), around);
            }
        });
    }
}

TEST_P(HostLookTest, IsThereBeforeTheSplashScreen) {
    QWidget *window = addWindow();
    show(window);
    time.advance(2);
    handleEvents();
    const Sight usual(controller(window).view());
    Velmora::removeSplashScreenFromWindow(window);
    restartProcess();
    closeWindow(window);
    for (const QString &sheet : HostLook::styleSheets({640, 480})) {
        SCOPED_TRACE(qPrintable(sheet));
        qApp->setStyleSheet(sheet);
        window = addWindow();
        window->activateWindow(); // else the ring moves in steps
        ASSERT_TRUE(eventually([&] { return window->isActiveWindow(); }));
        show(window);
        time.advance(2);
        handleEvents();
        EXPECT_EQ(Sight(controller(window).view()), usual);
        restartProcess();
        closeWindow(window);
    }
}

INSTANTIATE_TEST_SUITE_P(Splash, HostLookTest, ::testing::Bool(),
                         [](const auto &tested) { return tested.param ? "Native" : "Plain"; });

/// A banner in a host that has a look of its own.
class BannerHostLookTest : public BannerHost {};

TEST_F(BannerHostLookTest, ReachesNothingOfABanner) {
    const HostLook look;
    server.campaign().setMedia(QStringLiteral("/media/wide.gif"),
                               stillGif(Qt::red, Qt::blue, {728, 90}));
    AdBannerController *shown = showOneOf({QStringLiteral("wide")});
    time.advance(1);
    ASSERT_TRUE(eventually([&] {
        shown->view()->grab();
        return shown->bannerImage()->decodedFrames() > 0;
    }));
    quietly(50); // the picture is decoded once more when it has its size
    auto *shadow = window->findChild<BannerShadowView *>();
    const Sight usual(shown->view());
    const Sight below(shadow);
    window->setObjectName(QStringLiteral("host"));
    tryEveryLook(look, window.get(), [&] {
        EXPECT_EQ(Sight(shown->view()), usual);
        EXPECT_EQ(Sight(shadow), below);
    });
}

} // namespace velmora::test
