#include "platform/Window.h"
#include "platform/NotificationCenter.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/Waiting.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QSplitter>

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

    template<class T = QWidget>
    static std::unique_ptr<T> shown(const char *name) {
        auto window = std::make_unique<T>();
        window->setObjectName(QLatin1String(name));
        Window::of(window.get());
        window->show();
        window->activateWindow();
        handleEvents();
        return window;
    }

    QStringList heard;
    std::vector<NotificationCenter::Observation> observations;
};

TEST_F(WindowTest, ResignComesBeforeBecomeWhenTheKeyWindowChanges) {
    const auto a = shown("a");
    const auto b = shown("b");
    EXPECT_TRUE(Window::of(b.get())->isKeyWindow());
    EXPECT_FALSE(Window::of(a.get())->isKeyWindow());
    a->activateWindow();
    handleEvents();
    EXPECT_EQ(heard, (QStringList{QStringLiteral("become a"), QStringLiteral("resign a"),
                                  QStringLiteral("become b"), QStringLiteral("resign b"),
                                  QStringLiteral("become a")}));
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
    EXPECT_EQ(heard, (QStringList{QStringLiteral("become closed"), QStringLiteral("resign closed"),
                                  QStringLiteral("close closed")}));
    EXPECT_FALSE(Window::of(closed.get())->isVisible());
}

TEST_F(WindowTest, ARefusedCloseIsNoClose) {
    const auto window = shown<RefusingWindow>("w");
    window->close();
    handleEvents();
    window->hide();
    EXPECT_FALSE(heard.contains(QStringLiteral("close w")));
}

TEST_F(WindowTest, KeyStatusDoesNotOutliveAWindowThatIsDeletedOutright) {
    auto doomed = shown("doomed");
    doomed.reset();
    const auto next = shown("next");
    EXPECT_TRUE(Window::of(next.get())->isKeyWindow());
    EXPECT_EQ(heard.count(QStringLiteral("become next")), 1);
}

TEST_F(WindowTest, TheContentViewIsWhereAViewDoesNotDisturbTheHost) {
    QMainWindow window;
    EXPECT_EQ(Window::of(&window)->contentView(), &window);
    auto *page = new QWidget;
    window.setCentralWidget(page);
    EXPECT_EQ(Window::of(page)->contentView(), page);
    window.setCentralWidget(new QSplitter);
    EXPECT_EQ(Window::of(&window)->contentView(), &window);
    EXPECT_EQ(Window::of(nullptr), nullptr);
}

TEST_F(WindowTest, AMinimisedWindowIsNotVisible) {
    const auto window = shown("w");
    EXPECT_TRUE(Window::of(window.get())->isVisible());
    window->showMinimized();
    handleEvents();
    EXPECT_FALSE(Window::of(window.get())->isVisible());
    EXPECT_FALSE(Window::of(window.get())->isKeyWindow());
    window->showNormal();
    handleEvents();
    EXPECT_TRUE(Window::of(window.get())->isVisible());
}

} // namespace velmora::test
