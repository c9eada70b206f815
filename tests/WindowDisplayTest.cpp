// SPDX-License-Identifier: Apache-2.0
#include "Window.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/OwnDisplay.h"
#include "tests/support/Waiting.h"

#include <QtGui/QCursor>
#include <QtWidgets/QWidget>

namespace velmora::test {

/// The effect of the style mask with a window manager.
class WindowDisplayTest : public FreshProcess {
protected:
    WindowDisplayTest() {
        host.resize(500, 300);
        host.show();
        eventually([this] { return host.isActiveWindow(); });
    }
    bool userMay(const QString &action) const {
        QCursor::pos(); // a round trip to the X server, which flushes pending requests
        const QString allowed = runOnDisplay(QStringLiteral("xprop"),
                                             {QStringLiteral("-id"), QString::number(host.winId()),
                                              QStringLiteral("_NET_WM_ALLOWED_ACTIONS")});
        return allowed.contains(action);
    }
    bool eventuallyMay(const QString &action, bool expected) const {
        return eventually([&] { return userMay(action) == expected; });
    }

    const QString resize = QStringLiteral("_NET_WM_ACTION_RESIZE");
    QWidget host;
    Window *window = Window::of(&host);
};

TEST_F(WindowDisplayTest, TheWindowManagerDoesNotOfferToResizeAWindowThatIsNotResizable) {
    EXPECT_TRUE(eventuallyMay(resize, true));
    window->setStyleMask(0);
    EXPECT_TRUE(eventuallyMay(resize, false));
    EXPECT_FALSE(userMay(QStringLiteral("MAXIMIZE")));
    EXPECT_EQ(host.size(), QSize(500, 300));
    host.resize(450, 350);
    quietly(100);
    EXPECT_EQ(host.size(), QSize(450, 350));
    EXPECT_TRUE(eventuallyMay(resize, false));
    window->setStyleMask(Window::Resizable);
    EXPECT_TRUE(eventuallyMay(resize, true));
    EXPECT_EQ(host.size(), QSize(450, 350));
}

TEST_F(WindowDisplayTest, BecameVisibleIsEmittedWhenTheUserRestoresTheWindow) {
    int shown = 0;
    QObject::connect(window, &Window::becameVisible, [&] { ++shown; });
    const QString id = QString::number(host.winId());
    runOnDisplay(QStringLiteral("xdotool"), {QStringLiteral("windowminimize"), id});
    ASSERT_TRUE(eventually([this] { return !window->isVisible(); }));
    EXPECT_EQ(shown, 0);
    runOnDisplay(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), id});
    EXPECT_TRUE(eventually([&] { return shown == 1; }));
    quietly(50);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(WindowDisplayTest, AMaximisedWindowStaysMaximisedAndRestoresItsSize) {
    for (const auto state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        host.setWindowState(state);
        EXPECT_TRUE(eventually([this] { return host.width() > 1000; }));
        quietly(50);
        const QRect whole = host.geometry();
        window->setStyleMask(0);
        quietly(100);
        EXPECT_EQ(host.geometry(), whole);
        host.showNormal();
        EXPECT_TRUE(eventually([this] { return host.size() == QSize(500, 300); }));
        EXPECT_TRUE(eventuallyMay(resize, false));
        EXPECT_EQ(host.size(), QSize(500, 300));
        window->setStyleMask(Window::Resizable);
        EXPECT_TRUE(eventuallyMay(resize, true));
    }
}

} // namespace velmora::test
