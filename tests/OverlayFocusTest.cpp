// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QApplication>

namespace velmora::test {

/// The keyboard focus of an overlay. Each test runs with a plain child widget and with a native
/// window; the user must not notice a difference.
class OverlayFocusTest : public OverlayHost, public ::testing::WithParamInterface<Overlay::Kind> {
protected:
    OverlayFocusTest() { make(GetParam()); }

    void show() {
        overlay->setHiddenNow(false);
        handleEvents();
        ASSERT_EQ(overlay->isNative(), GetParam() == Overlay::Kind::Native);
    }
    bool overlayHasFocus() const {
        const QWidget *focus = QApplication::focusWidget();
        return focus && focus != name && focus != city && focus != search && focus != content;
    }
};

TEST_P(OverlayFocusTest, TabStaysInTheOverlayAndKeysReachItsButtons) {
    name->setFocus();
    show();
    EXPECT_TRUE(overlayHasFocus());
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab}) {
        press(key);
        press(Qt::Key_Space);
    }
    EXPECT_EQ(clicked, (QStringList{QStringLiteral("close"), QStringLiteral("more"),
                                    QStringLiteral("close"), QStringLiteral("more")}));
    press(Qt::Key_X);
    EXPECT_EQ(name->text(), QString());

    close->hide();
    more->hide();
    press(Qt::Key_Tab);
    EXPECT_TRUE(overlayHasFocus() || !QApplication::focusWidget());
    press(Qt::Key_X);
    EXPECT_EQ(name->text() + city->text() + search->text(), QString());
}

TEST_P(OverlayFocusTest, TheFocusReturnsToTheWidgetThatHadIt) {
    city->setFocus();
    show();
    press(Qt::Key_Tab);
    overlay->setHidden(true);
    EXPECT_EQ(QApplication::focusWidget(), city);
    time.advance(1);
    EXPECT_EQ(QApplication::focusWidget(), city);

    // If that widget is gone, the focus does not go to another of the host's widgets.
    show();
    delete city;
    overlay->setHidden(true);
    time.advance(1);
    EXPECT_NE(QApplication::focusWidget(), name);
}

TEST_P(OverlayFocusTest, TheOverlayTakesBackAFocusThatTheHostMovesBelowIt) {
    show();
    name->setFocus();
    city->setFocus();
    handleEvents();
    EXPECT_TRUE(overlayHasFocus());
    overlay->setHidden(true);
    EXPECT_EQ(QApplication::focusWidget(), city);

    // If the host sets its focus again and again, the overlay gives up; there is no endless loop.
    show();
    QObject::connect(qApp, &QApplication::focusChanged, name, [this](QWidget *, QWidget *now) {
        if (now != name)
            QMetaObject::invokeMethod(
                name, [this] { name->setFocus(); }, Qt::QueuedConnection);
    });
    name->setFocus();
    quietly(50);
    EXPECT_EQ(QApplication::focusWidget(), name);
}

TEST_P(OverlayFocusTest, AFocusOutsideTheOverlayStaysWhereItIs) {
    search->setFocus();
    show();
    EXPECT_EQ(QApplication::focusWidget(), search);
    overlay->setHidden(true);
    time.advance(1);
    EXPECT_EQ(QApplication::focusWidget(), search);

    // The strip that an overlay leaves free at the top belongs to the host.
    overlay->setFrame(content->rect().adjusted(0, 55, 0, 0));
    show();
    name->setFocus();
    handleEvents();
    EXPECT_EQ(QApplication::focusWidget(), name);
    city->setFocus();
    handleEvents();
    EXPECT_TRUE(overlayHasFocus());
    search->setFocus();
    overlay->setHidden(true);
    time.advance(1);
    EXPECT_EQ(QApplication::focusWidget(), search);
}

TEST_P(OverlayFocusTest, AnInactiveWindowStaysInactive) {
    name->setFocus();
    QWidget other;
    other.show();
    ASSERT_TRUE(activate(&other));
    show();
    quietly(50);
    EXPECT_EQ(QApplication::activeWindow(), &other);
    ASSERT_TRUE(activate(window.get()));
    EXPECT_TRUE(eventually([&] { return overlayHasFocus(); }));
}

const auto nameOfKind = [](const ::testing::TestParamInfo<Overlay::Kind> &kind) {
    return kind.param == Overlay::Kind::Native ? "Native" : "Plain";
};
#ifdef VELMORA_TEST_DISPLAY
INSTANTIATE_TEST_SUITE_P(Kinds, OverlayFocusTest,
                         ::testing::Values(Overlay::Kind::Automatic, Overlay::Kind::Native),
                         nameOfKind);
#else
// On the offscreen platform every window that is shown becomes active, an overlay's native one too.
INSTANTIATE_TEST_SUITE_P(Kinds, OverlayFocusTest, ::testing::Values(Overlay::Kind::Automatic),
                         nameOfKind);
#endif

} // namespace velmora::test
