// SPDX-License-Identifier: Apache-2.0
#include "tests/support/OverlayHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QApplication>

namespace velmora::test {

/// Once as a plain child and once in a container: the same for the one who types.
class OverlayFocusTest : public OverlayHost, public ::testing::WithParamInterface<Overlay::Kind> {
protected:
    OverlayFocusTest() { make(GetParam()); }

    void show() {
        overlay->setHiddenNow(false);
        handleEvents();
        ASSERT_EQ(overlay->isNative(), GetParam() == Overlay::Kind::Native);
    }
    /// Nobody but the overlay gets keys.
    bool overlayHasKeys() const {
        const QWidget *focus = QApplication::focusWidget();
        return focus && focus != name && focus != city && focus != search && focus != content;
    }
};

TEST_P(OverlayFocusTest, TabStaysInTheViewAndKeysReachItsButtons) {
    name->setFocus();
    show();
    EXPECT_TRUE(overlayHasKeys());
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Backtab);
    press(Qt::Key_Space);
    EXPECT_EQ(clicked, (QStringList{QStringLiteral("close"), QStringLiteral("more"),
                                    QStringLiteral("close"), QStringLiteral("more")}));
    press(Qt::Key_X);
    EXPECT_EQ(name->text(), QString());

    close->hide();
    more->hide();
    press(Qt::Key_Tab);
    EXPECT_TRUE(overlayHasKeys() || !QApplication::focusWidget());
    press(Qt::Key_X);
    EXPECT_EQ(name->text() + city->text() + search->text(), QString());
}

TEST_P(OverlayFocusTest, TheFocusGoesBackWhereItWas) {
    city->setFocus();
    show();
    press(Qt::Key_Tab);
    overlay->setHidden(true);
    EXPECT_EQ(QApplication::focusWidget(), city);
    time.advance(1);
    EXPECT_EQ(QApplication::focusWidget(), city);

    // Back to a field that has gone: to none of the host's others.
    show();
    delete city;
    overlay->setHidden(true);
    time.advance(1);
    EXPECT_NE(QApplication::focusWidget(), name);
}

TEST_P(OverlayFocusTest, AFocusThatTheHostMovesBelowIsTakenBack) {
    show();
    name->setFocus();
    city->setFocus();
    handleEvents();
    EXPECT_TRUE(overlayHasKeys());
    overlay->setHidden(true);
    EXPECT_EQ(QApplication::focusWidget(), city);

    // A host that insists wins in the end, and nothing spins.
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

TEST_P(OverlayFocusTest, AFocusElsewhereInTheWindowIsLeftAlone) {
    search->setFocus();
    show();
    EXPECT_EQ(QApplication::focusWidget(), search);
    overlay->setHidden(true);
    time.advance(1);
    EXPECT_EQ(QApplication::focusWidget(), search);

    // A strip left free at the top is the host's.
    overlay->setFrame(content->rect().adjusted(0, 55, 0, 0));
    show();
    name->setFocus();
    handleEvents();
    EXPECT_EQ(QApplication::focusWidget(), name);
    city->setFocus();
    handleEvents();
    EXPECT_TRUE(overlayHasKeys());
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
    EXPECT_TRUE(eventually([&] { return overlayHasKeys(); }));
}

const auto nameOfKind = [](const ::testing::TestParamInfo<Overlay::Kind> &kind) {
    return kind.param == Overlay::Kind::Native ? "Native" : "Plain";
};
#ifdef VELMORA_TEST_DISPLAY
INSTANTIATE_TEST_SUITE_P(Kinds, OverlayFocusTest,
                         ::testing::Values(Overlay::Kind::Automatic, Overlay::Kind::Native),
                         nameOfKind);
#else
// Without a display every window that appears becomes the active one.
INSTANTIATE_TEST_SUITE_P(Kinds, OverlayFocusTest, ::testing::Values(Overlay::Kind::Automatic),
                         nameOfKind);
#endif

} // namespace velmora::test
