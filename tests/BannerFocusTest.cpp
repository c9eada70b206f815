// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "tests/support/BannerHost.h"
#include "tests/support/OverlayHost.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

namespace velmora::test {

/// The keyboard in a window with a banner.
class BannerFocusTest : public BannerHost {
protected:
    void press(Qt::Key key) {
        QTest::keyClick(window->windowHandle(), key);
        handleEvents();
    }
};

TEST_F(BannerFocusTest, AControlOfTheHostThatGoesDoesNotLeaveItsFocusToABanner) {
    QPushButton button(window.get());
    button.show();
    showOneOf({QStringLiteral("one")});
    ASSERT_TRUE(takesClicks());
    ASSERT_TRUE(OverlayHost::activate(window.get()));
    for (const bool hides : {false, true}) {
        button.setEnabled(true);
        button.show();
        button.setFocus();
        ASSERT_TRUE(button.hasFocus());
        hides ? button.hide() : button.setEnabled(false);
        press(Qt::Key_Space);
        EXPECT_EQ(notifications, QStringList()) << hides;
        EXPECT_EQ(opened.size(), 0) << hides;
    }
    button.setEnabled(true);
    button.show();
    button.setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), current()->closeButton());
}

TEST_F(BannerFocusTest, AKeyOpensTheAdOnceAndNotAtItsBeginning) {
    AdBannerController *controller = showOneOf({QStringLiteral("one"), QStringLiteral("two")});
    ASSERT_TRUE(takesClicks());
    ASSERT_TRUE(OverlayHost::activate(window.get()));
    controller->bannerImage()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(opened.size(), 1);
    time.advance(1);
    const QString before = controller->selectBanner();
    // In small steps, so that the key comes just after the swap.
    ASSERT_TRUE(eventually([&] {
        time.advance(0.05);
        return controller->selectBanner() != before;
    }));
    press(Qt::Key_Return);
    EXPECT_EQ(opened.size(), 1);
    ASSERT_TRUE(takesClicks());
    press(Qt::Key_Return);
    EXPECT_EQ(opened.size(), 2);
}

} // namespace velmora::test
