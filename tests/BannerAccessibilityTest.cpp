// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "tests/support/AccessibilityClient.h"
#include "tests/support/BannerHost.h"
#include "tests/support/OverlayHost.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <iostream>

namespace velmora::test {

/// A banner as a screen reader and the keyboard find it, on a display.
class BannerAccessibilityTest : public BannerHost {
protected:
    BannerAccessibilityTest() { EXPECT_TRUE(OverlayHost::activate(window.get())); }

    void show() {
        showOneOf({QStringLiteral("one")});
        time.advance(1); // the fade, and the time in which the ad can't be opened
        handleEvents();
    }
    QString told() {
        const QString lines = reader.dump().join(QLatin1Char('\n'));
        if (qEnvironmentVariableIsSet("VELMORA_PRINT_ACCESSIBLE"))
            std::cout << lines.toStdString() << "\n\n";
        return lines;
    }
    void press(Qt::Key key) {
        QTest::keyClick(window->windowHandle(), key);
        handleEvents();
    }
    /// Qt passes keys on when the screen reader has seen them.
    bool getsFocus(const QWidget *widget) {
        return eventually([&] { return QApplication::focusWidget() == widget; });
    }

    AccessibilityClient reader;
};

TEST_F(BannerAccessibilityTest, ItIsFoundAndWorkedAlsoInANativeWindowOfItsOwn) {
    show();
    const auto link = QStringLiteral("Advertisement, opens in the browser");
    for (const bool isNative : {false, true}) {
        QWidget native(window.get());
        if (isNative) {
            native.setAttribute(Qt::WA_NativeWindow);
            native.setGeometry(0, 300, 1000, 300);
            native.show();
            handleEvents();
            ASSERT_EQ(current()->bannerImage()->window() != window.get(), true);
        }
        EXPECT_TRUE(told().contains(QLatin1String("panel \"Advertisement\"\n"))) << isNative;
        EXPECT_TRUE(
            told().contains(QLatin1String("link \"Advertisement, opens in the browser\" (one)")));
        reader.press(reader.find(QStringLiteral("link"), link));
        EXPECT_EQ(opened.size(), isNative ? 2 : 1);
        reader.press(reader.find(QStringLiteral("push button"), QStringLiteral("Remove ads")));
        EXPECT_EQ(notifications.count(QStringLiteral("tryremoveads:")), isNative ? 2 : 1);
        time.advance(1);
    }
}

TEST_F(BannerAccessibilityTest, TabReachesTheCloseButtonAndThenTheAd) {
    QLineEdit field(window.get());
    field.show();
    field.setFocus();
    show();
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(current()->closeButton()));
    press(Qt::Key_Return);
    EXPECT_TRUE(eventually([&] { return notifications.contains(QLatin1String("tryremoveads:")); }));
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(current()->bannerImage()));
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(&field));

    Velmora::setBannersInTabOrder(false);
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(&field));
    current()->removeADS();
    handleEvents();
    showOneOf({QStringLiteral("one")});
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(&field)) << "a later banner";
}

TEST_F(BannerAccessibilityTest, AnActivatedWindowDoesNotGiveItTheFocus) {
    show();
    QWidget other;
    other.show();
    ASSERT_TRUE(OverlayHost::activate(&other));
    ASSERT_TRUE(OverlayHost::activate(window.get()));
    handleEvents();
    EXPECT_EQ(window->focusWidget(), nullptr);
    press(Qt::Key_Space);
    EXPECT_EQ(notifications, QStringList());

    // A user who has tabbed into the banner finds the focus there again.
    press(Qt::Key_Tab);
    EXPECT_TRUE(getsFocus(current()->closeButton()));
    ASSERT_TRUE(OverlayHost::activate(&other));
    ASSERT_TRUE(OverlayHost::activate(window.get()));
    handleEvents();
    EXPECT_EQ(window->focusWidget(), current()->closeButton());
}

} // namespace velmora::test
