// SPDX-License-Identifier: Apache-2.0
#include "Window.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Waiting.h"
#include <Velmora/NotificationCenter.h>

#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

namespace velmora::test {

namespace {

class RefusingWindow : public QWidget {
protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
};

} // namespace

class WindowTest : public FreshProcess {
protected:
    WindowTest() {
        const auto note = [this](const QString &what) {
            return [this, what](const Notification &n) {
                heard.append(what + n.object.value<QObject *>()->objectName());
            };
        };
        auto &center = NotificationCenter::defaultCenter();
        observations.push_back(
            center.addObserver(NSWindowDidBecomeKeyNotification, note(QStringLiteral("become "))));
        observations.push_back(
            center.addObserver(NSWindowDidResignKeyNotification, note(QStringLiteral("resign "))));
        observations.push_back(
            center.addObserver(NSWindowWillCloseNotification, note(QStringLiteral("close "))));
    }

    static void activate(QWidget *window) {
        window->activateWindow();
        handleEvents();
    }

    template<class T = QWidget>
    static std::unique_ptr<T> shown(const char *name) {
        auto window = std::make_unique<T>();
        window->setObjectName(QLatin1String(name));
        Window::of(window.get());
        window->show();
        activate(window.get());
        return window;
    }

    QStringList heard;
    std::vector<NotificationCenter::Observation> observations;
};

TEST_F(WindowTest, ResignKeyIsPostedBeforeBecomeKey) {
    const auto a = shown("a");
    const auto b = shown("b");
    EXPECT_TRUE(Window::of(b.get())->isKeyWindow());
    EXPECT_FALSE(Window::of(a.get())->isKeyWindow());
    activate(a.get());
    EXPECT_EQ(heard.join(QStringLiteral(", ")),
              QStringLiteral("become a, resign a, become b, resign b, become a"));
}

TEST_F(WindowTest, AHiddenOrClosedWindowIsNotKey) {
    const auto hidden = shown("hidden");
    hidden->hide();
    handleEvents();
    EXPECT_FALSE(Window::of(hidden.get())->isKeyWindow());
    EXPECT_EQ(heard,
              (QStringList{QStringLiteral("become hidden"), QStringLiteral("resign hidden")}));
    heard.clear();

    const auto closed = shown("closed");
    closed->close();
    EXPECT_EQ(heard.join(QStringLiteral(", ")),
              QStringLiteral("become closed, resign closed, close closed"));
    EXPECT_FALSE(Window::of(closed.get())->isVisible());
}

TEST_F(WindowTest, ARefusedCloseIsNotPosted) {
    const auto window = shown<RefusingWindow>("w");
    window->close();
    handleEvents();
    window->hide();
    EXPECT_FALSE(heard.contains(QStringLiteral("close w")));
}

TEST_F(WindowTest, AReparentedWidgetBelongsToItsNewWindow) {
    auto page = shown("page");
    const auto host = shown("host");
    activate(page.get());
    EXPECT_TRUE(Window::of(page.get())->isKeyWindow());
    heard.clear();
    page->setParent(host.get());
    page->show();
    EXPECT_EQ(Window::of(page.get()), Window::of(host.get()));
    EXPECT_EQ(heard, QStringList{QStringLiteral("resign page")});
    const auto third = shown("third");
    activate(host.get());
    EXPECT_TRUE(Window::of(page.get())->isKeyWindow());
    EXPECT_EQ(heard.filter(QStringLiteral("page")).size(), 1);

    page->setParent(nullptr);
    page->show();
    activate(page.get());
    EXPECT_TRUE(Window::of(page.get())->isKeyWindow());
}

class WindowStyleTest : public WindowTest {
protected:
    // Whether the user cannot resize the window.
    static bool isFixedForUser(const QWidget &window) {
        const QWindow *native = window.windowHandle();
        return native->minimumSize() == window.size() && native->maximumSize() == window.size();
    }
    static bool hasItsOwnLimits(const QWidget &window) {
        const QWindow *native = window.windowHandle();
        return native->minimumSize() == window.minimumSize() &&
               native->maximumSize() == window.maximumSize();
    }
};

TEST_F(WindowStyleTest, ALayoutStillSetsTheMinimumSize) {
    const auto host = shown<QMainWindow>("w");
    auto *label = new QLabel(QStringLiteral("text"));
    label->setMinimumSize(250, 150);
    host->setCentralWidget(label);
    host->resize(500, 300);
    handleEvents();
    Window *window = Window::of(host.get());
    window->setStyleMask(0);
    label->setMinimumSize(350, 200);
    handleEvents();
    EXPECT_TRUE(isFixedForUser(*host));
    EXPECT_EQ(host->size(), QSize(500, 300));
    window->setStyleMask(Window::Resizable);
    EXPECT_TRUE(hasItsOwnLimits(*host));
    label->setMinimumSize(100, 100);
    handleEvents();
    EXPECT_LT(host->minimumSize().width(), 350);
    EXPECT_TRUE(hasItsOwnLimits(*host));
}

TEST_F(WindowStyleTest, AHiddenWindowMayBeResizedByItsHost) {
    QWidget unseen;
    unseen.resize(400, 200);
    Window::of(&unseen)->setStyleMask(0);
    unseen.resize(300, 200);
    unseen.show();
    handleEvents();
    EXPECT_EQ(unseen.size(), QSize(300, 200));
    EXPECT_TRUE(isFixedForUser(unseen));
}

} // namespace velmora::test
