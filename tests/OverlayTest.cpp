// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"
#include "tests/support/Waiting.h"

#include <QtCore/QSet>
#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <functional>

namespace velmora::test {

namespace {

// Counts the mouse events that reach the host's content.
class MouseCounter : public QObject {
public:
    using QObject::QObject;
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override {
        static const QSet<QEvent::Type> counted{QEvent::MouseButtonPress,
                                                QEvent::MouseButtonRelease, QEvent::MouseMove,
                                                QEvent::Wheel, QEvent::ContextMenu};
        count += counted.contains(event->type());
        return false;
    }
};

} // namespace

class OverlayTest : public OverlayHost {
protected:
    QWidget *addNativeWindow() {
        QWidget *container = QWidget::createWindowContainer(new QWindow, content);
        container->setGeometry(0, 0, 200, 200);
        container->show();
        handleEvents();
        return container;
    }
    QWidget *topmostChild() const {
        const auto widgets = content->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
        return widgets.last();
    }
};

TEST_F(OverlayTest, TheFrameFollowsTheSuperviewWithItsMargins) {
    make(Overlay::Kind::Automatic);
    EXPECT_EQ(overlay->frame(), content->rect());
    EXPECT_TRUE(overlay->isHidden());
    EXPECT_TRUE(view->isHidden());
    overlay->setHiddenNow(false);
    const QSize before = content->size();
    overlay->setFrame({0, 12, before.width(), before.height() - 12});
    window->resize(700, 500);
    handleEvents();
    EXPECT_EQ(overlay->frame(), content->rect().adjusted(0, 12, 0, 0));
    EXPECT_EQ(view->geometry(), overlay->frame());
    // The superview becomes smaller than the margins, and larger again.
    content->resize(700, 5);
    EXPECT_EQ(view->height(), 0);
    content->resize(700, 100);
    EXPECT_EQ(view->geometry(), QRect(0, 12, 700, 88));
}

TEST_F(OverlayTest, MouseEventsDoNotReachTheContent) {
    make(Overlay::Kind::Automatic);
    MouseCounter counter;
    content->installEventFilter(&counter);
    window->installEventFilter(&counter);
    name->installEventFilter(&counter);
    overlay->setHiddenNow(false);
    handleEvents();
    QWindow *native = window->windowHandle();
    const QPoint point = name->mapTo(window.get(), QPoint(60, 80));
    QTest::mouseClick(native, Qt::LeftButton, {}, point);
    QTest::mousePress(native, Qt::LeftButton, {}, point);
    QTest::mouseMove(native, point + QPoint(30, 30));
    QTest::mouseRelease(native, Qt::LeftButton, {}, point + QPoint(30, 30));
    QWheelEvent wheel(point, window->mapToGlobal(point), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(native, &wheel);
    handleEvents();
    EXPECT_EQ(counter.count, 0);
    EXPECT_NE(QApplication::focusWidget(), content);
    QTest::mouseClick(native, Qt::LeftButton, {}, close->mapTo(window.get(), QPoint(9, 9)));
    EXPECT_EQ(clicked.size(), 1);

    overlay->setHidden(true);
    EXPECT_TRUE(overlay->isHidden());
    time.advance(1);
    QTest::mouseClick(native, Qt::LeftButton, {}, point);
    EXPECT_GT(counter.count, 0);
    window->removeEventFilter(&counter);
}

TEST_F(OverlayTest, ItRaisesItselfButGivesUpWhenTheHostRaisesAWidgetAgainAndAgain) {
    make(Overlay::Kind::Automatic);
    overlay->setHiddenNow(false);
    handleEvents();
    auto *added = new QWidget(content);
    added->setGeometry(0, 0, 50, 50);
    added->show();
    handleEvents();
    EXPECT_EQ(topmostChild(), view);
    name->raise();
    handleEvents();
    EXPECT_EQ(topmostChild(), view);

    time.advance(2);
    int raised = 0;
    for (; raised < 100; ++raised) {
        added->raise();
        handleEvents();
        if (topmostChild() != view)
            break;
    }
    EXPECT_GT(raised, 2);
    EXPECT_LT(raised, 20);
    overlay->setHiddenNow(true);
    overlay->setHiddenNow(false);
    EXPECT_EQ(topmostChild(), view);
}

TEST_F(OverlayTest, TheSameViewMovesIntoAContainerAndBack) {
    make(Overlay::Kind::Automatic);
    EXPECT_EQ(view->parentWidget(), content);
    name->setFocus();
    overlay->setHidden(false);
    handleEvents();
    more->setFocus();
    QWidget *native = addNativeWindow();
    EXPECT_TRUE(overlay->isNative());
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(view->size(), content->size());
    EXPECT_EQ(view->accessibleName(), QStringLiteral("Advertisement"));
    press(Qt::Key_Space);
    EXPECT_EQ(clicked, QStringList{QStringLiteral("more")});
    window->resize(600, 500);
    handleEvents();
    EXPECT_EQ(view->size(), content->size());

    delete native;
    overlay->setHidden(true);
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), name);
    overlay->setHidden(false);
    EXPECT_FALSE(overlay->isNative());
    EXPECT_EQ(view->parentWidget(), content);
    EXPECT_EQ(topmostChild(), view);
    EXPECT_TRUE(close->isVisible());
}

TEST_F(OverlayTest, ANativeWindowThatIsHiddenOrOutsideNeedsNoContainer) {
    make(Overlay::Kind::Automatic);
    QWidget *container = addNativeWindow();
    container->hide();
    overlay->setHiddenNow(false);
    handleEvents();
    EXPECT_FALSE(overlay->isNative());
    container->setGeometry(2000, 0, 10, 10);
    container->show();
    handleEvents();
    EXPECT_FALSE(overlay->isNative());
    container->setGeometry(10, 10, 100, 100);
    handleEvents();
    EXPECT_TRUE(overlay->isNative());
}

TEST_F(OverlayTest, AnOverlayThatDoesNotAppearGivesTheWindowBack) {
    for (const auto kind : {Overlay::Kind::Automatic, Overlay::Kind::Native}) {
        OverlayHost::reset();
        make(kind);
        int missing = 0;
        overlay->setMissingHandler([&missing] { ++missing; });
        window->hide();
        overlay->setHiddenNow(false);
        time.advance(5);
        window->show();
        handleEvents();
        time.advance(5);
        EXPECT_EQ(missing, 0);
        EXPECT_TRUE(view->isVisible());

        overlay->setHiddenNow(true);
        content->hide();
        overlay->setHiddenNow(false);
        time.advance(1.9);
        EXPECT_EQ(missing, 0);
        time.advance(0.2);
        EXPECT_EQ(missing, 1);
        EXPECT_TRUE(overlay->isHidden());
        EXPECT_EQ(time.timerCount(), 0u);
    }
}

/// The host destroys something while the overlay is in each of its states.
class OverlayEndTest : public OverlayTest {
protected:
    using Step = std::function<void()>;

    void inEachState(const Step &end) {
        const std::vector<Step> states = {
            [] {},
            [this] { overlay->setHiddenNow(false); },
            [this] { overlay->setHidden(false); },
            [this] {
                overlay->setHiddenNow(false);
                overlay->setHidden(true);
                time.advance(0.1);
            },
            [this] {
                overlay->setHiddenNow(false);
                addNativeWindow();
            },
            [this] {
                overlay->setHiddenNow(false);
                addNativeWindow();
                overlay->setHidden(true);
            },
        };
        for (const auto kind : {Overlay::Kind::Automatic, Overlay::Kind::Native}) {
            for (const Step &state : states) {
                for (const bool atOnce : {true, false}) {
                    OverlayHost::reset();
                    make(kind);
                    name->setFocus();
                    state();
                    if (!atOnce)
                        handleEvents();
                    end();
                    overlay->setHidden(true);
                    overlay->setHidden(false);
                    overlay->setFrame({0, 0, 10, 10});
                    handleEvents();
                    time.advance(1);
                    ended();
                    overlay.reset();
                    handleEvents();
                    EXPECT_FALSE(view);
                    EXPECT_EQ(time.timerCount(), 0u);
                }
            }
        }
    }
    std::function<void()> ended = [this] {
        EXPECT_FALSE(view);
        EXPECT_EQ(overlay->superview(), nullptr);
        EXPECT_TRUE(overlay->isHidden());
    };
};

TEST_F(OverlayEndTest, TheHostMayDestroyTheWindowOrAnyPartOfIt) {
    const std::pair<const char *, Step> ends[] = {
        {"window", [this] { window.reset(); }},
        {"superview", [this] { delete content; }},
        {"view", [this] { delete view; }},
        {"view's parent", [this] { delete view->parentWidget(); }},
    };
    for (const auto &[what, end] : ends) {
        SCOPED_TRACE(what);
        inEachState([this, end = end] {
            end();
            EXPECT_FALSE(view);
        });
    }
}

TEST_F(OverlayEndTest, ItMayBeRemovedAlsoByItsOwnButton) {
    inEachState([this] {
        overlay->remove();
        overlay->remove();
        EXPECT_EQ(overlay->superview(), nullptr);
    });
    // By the click handler of a button on the overlay.
    for (const auto kind : {Overlay::Kind::Automatic, Overlay::Kind::Native}) {
        OverlayHost::reset();
        make(kind);
        overlay->setHiddenNow(false);
        handleEvents();
        QObject::connect(close, &QPushButton::clicked, [this] { overlay.reset(); });
        QTest::mouseClick(view->window()->windowHandle(), Qt::LeftButton, {},
                          close->mapTo(view->window(), QPoint(9, 9)));
        handleEvents();
        EXPECT_FALSE(overlay);
        EXPECT_FALSE(view);

        OverlayHost::reset();
        make(kind);
        overlay->setHiddenNow(false);
        name->setFocus();
        handleEvents();
        close->setFocus();
        QObject::connect(close, &QPushButton::clicked, [this] { window.reset(); });
        press(Qt::Key_Space);
        EXPECT_FALSE(window);
        EXPECT_FALSE(view);
        overlay.reset();
    }
}

TEST_F(OverlayEndTest, TheHostMayDestroyEveryChildOfTheSuperview) {
    // The view is destroyed with the others, unless it is in a container; then it is shown again.
    ended = [this] { EXPECT_TRUE(!view || !overlay->isHidden()); };
    inEachState([this] {
        const auto doomed = content->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
        qDeleteAll(doomed);
    });
}

} // namespace velmora::test
