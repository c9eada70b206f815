// SPDX-License-Identifier: Apache-2.0
#include "tests/support/BannerHost.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QVBoxLayout>

namespace velmora::test {

/// Content that ends above the banner, in the usual kinds of hosts.
class ReservedSpaceTest : public BannerHost {
protected:
    ReservedSpaceTest() {
        serveWide();
        Velmora::setBannersReserveSpace(true);
    }

    template<class Host>
    Host *open(Host *host) {
        window.reset(host);
        host->resize(1000, 600);
        host->show();
        handleEvents();
        return host;
    }

    QMainWindow *openMainWindow(QWidget *central) {
        auto *host = new QMainWindow;
        host->statusBar()->showMessage(QStringLiteral("ready"));
        host->setCentralWidget(central);
        return open(host);
    }

    /// A window with a button that fills its layout.
    QPushButton *openWithLayout() {
        auto *host = new QWidget;
        auto *layout = new QVBoxLayout(host);
        auto *button = new QPushButton;
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        layout->addWidget(button);
        open(host);
        return button;
    }

    void showBanner() {
        addBanner();
        ASSERT_TRUE(shows("wide"));
        handleEvents();
    }

    QRect inWindow(const QWidget *widget, const QRect &rect) const {
        return {widget->mapTo(window.get(), rect.topLeft()), rect.size()};
    }

    EventRecorder events;
};

TEST_F(ReservedSpaceTest, TheContentEndsAboveTheBannerAndGetsItsPlaceBack) {
    using Content = std::function<QRect()>;
    const auto areaOf = [this](const QWidget *widget) -> Content {
        return [=, this] { return inWindow(widget, widget->rect()); };
    };
    const std::pair<const char *, std::function<Content()>> hosts[] = {
        {"layout", [&] { return areaOf(openWithLayout()); }},
        {"label",
         [&]() -> Content {
             auto *label = open(new QLabel(QStringLiteral("text")));
             return [label] { return label->contentsRect(); };
         }},
        {"text",
         [&] {
             auto *edit = new QTextEdit;
             edit->setPlainText(QStringLiteral("line\n").repeated(100));
             openMainWindow(edit);
             return areaOf(edit->viewport());
         }},
        {"tabs",
         [&] {
             auto *tabs = new QTabWidget;
             auto *page = new QWidget;
             tabs->addTab(page, QStringLiteral("page"));
             openMainWindow(tabs);
             return areaOf(page);
         }},
    };
    const std::pair<const char *, std::function<void()>> ends[] = {
        {"hidden", [&] { current()->setBannerHidden(true); }},
        {"switched off", [] { Velmora::setBannersReserveSpace(false); }},
        {"destroyed", [&] { delete current()->viewIfLoaded(); }},
        {"removed", [] { Velmora::removeAdsNow(); }},
    };
    for (const auto &[name, openHost] : hosts) {
        for (const auto &[how, end] : ends) {
            SCOPED_TRACE(std::string(name) + ", " + how);
            const Content content = openHost();
            const QRect before = content();
            showBanner();
            const QRect banner = current()->rectInWindow();
            EXPECT_EQ(banner.height(), 104);
            EXPECT_LT(content().bottom(), banner.top());
            EXPECT_GT(content().bottom(), banner.top() - 20);
            const QWidget *superview = current()->view()->parentWidget();
            const auto *area = qobject_cast<const QAbstractScrollArea *>(superview);
            const QScrollBar *bar = area ? area->horizontalScrollBar() : nullptr;
            const int barHeight = bar && bar->isVisible() ? bar->height() : 0;
            EXPECT_EQ(banner.bottom(), inWindow(superview, superview->rect()).bottom() - barHeight);
            EXPECT_EQ(window->size(), QSize(1000, 600));

            end();
            handleEvents();
            EXPECT_EQ(content(), before);
            Velmora::resetAds();
            Velmora::setBannersReserveSpace(true);
            handleEvents();
        }
    }
    EXPECT_EQ(events.refusals(), QStringList());
}

TEST_F(ReservedSpaceTest, TheSpaceFollowsTheBannerAndComesToRest) {
    const QPushButton *button = openWithLayout();
    const int gap = 600 - inWindow(button, button->rect()).bottom();
    showBanner();
    const auto expectAbove = [&] {
        for (int turn = 0; turn < 5; ++turn)
            handleEvents();
        const QRect place = current()->view()->geometry();
        EXPECT_EQ(inWindow(button, button->rect()).bottom() + gap, place.top());
        handleEvents();
        EXPECT_EQ(current()->view()->geometry(), place);
    };
    expectAbove();
    Velmora::setBannersSmallImage();
    Velmora::setBannersBottomInset(30);
    expectAbove();
    window->resize(300, 600); // the banner is scaled down
    expectAbove();
    EXPECT_LT(current()->view()->height(), 60);

    // A low window grows until it has room for both, and no further.
    Velmora::setBannersLargeImage();
    Velmora::setBannersBottomInset(0);
    window->resize(1000, 50);
    for (int turn = 0; turn < 20; ++turn)
        handleEvents();
    const int grown = window->height();
    EXPECT_LT(grown, 200);
    EXPECT_GE(inWindow(button, button->rect()).height(), button->minimumSizeHint().height());
    handleEvents();
    EXPECT_EQ(window->height(), grown);
}

TEST_F(ReservedSpaceTest, AMarginThatTheHostChangesMeanwhileIsKept) {
    openWithLayout();
    window->setContentsMargins(1, 2, 3, 4);
    showBanner();
    EXPECT_EQ(window->contentsMargins(), QMargins(1, 2, 3, 108));
    // Another number for all, and one more for the bottom.
    window->setContentsMargins(5, 5, 5, 20);
    handleEvents();
    EXPECT_EQ(window->contentsMargins(), QMargins(5, 5, 5, 124));
    window->setContentsMargins(window->contentsMargins() + QMargins(0, 0, 0, 7));
    handleEvents();
    EXPECT_EQ(window->contentsMargins(), QMargins(5, 5, 5, 131));
    current()->setBannerHidden(true);
    handleEvents();
    EXPECT_EQ(window->contentsMargins(), QMargins(5, 5, 5, 27));

    // Two banners over each other need no more space than one.
    current()->setBannerHidden(false);
    ViewController host(window.get());
    Velmora::addBannerForViewController(&host, nullptr);
    ASSERT_TRUE(shows("wide"));
    handleEvents();
    EXPECT_EQ(window->contentsMargins(), QMargins(5, 5, 5, 131));
    // The host takes one banner's view to another place.
    QWidget *moved = current()->view();
    QLabel other;
    other.resize(900, 300);
    other.show();
    moved->setParent(&other);
    moved->show();
    handleEvents();
    EXPECT_EQ(other.contentsMargins().bottom(), 104);
    Velmora::removeAdsNow();
    handleEvents();
    EXPECT_EQ(other.contentsMargins().bottom(), 0);
    EXPECT_EQ(window->contentsMargins(), QMargins(5, 5, 5, 27));
}

TEST_F(ReservedSpaceTest, AViewWhoseContentDoesNotFollowItsMarginsIsLeftAloneAndRefused) {
    const auto expectRefusal = [&] {
        showBanner();
        EXPECT_EQ(events.refusals(), QStringList{QStringLiteral("ReserveSpace NoLayout")});
        window->resize(900, 500);
        EXPECT_EQ(events.refusals(), QStringList());
        // One for the frame of the table.
        EXPECT_LE(current()->view()->parentWidget()->contentsMargins().bottom(), 1);
    };
    open(new QWidget);
    expectRefusal();
    // It may get a layout later.
    new QVBoxLayout(window.get());
    window->resize(901, 500);
    handleEvents();
    EXPECT_EQ(window->contentsMargins().bottom(), 104);

    auto *tabs = new QTabWidget;
    tabs->setTabPosition(QTabWidget::South);
    tabs->addTab(new QWidget, QStringLiteral("page"));
    openMainWindow(tabs);
    expectRefusal();
    // A table sets its viewport margins itself, for its headers.
    openMainWindow(new QTableWidget(50, 3));
    expectRefusal();
}

} // namespace velmora::test
