// SPDX-License-Identifier: Apache-2.0
#include "ColoredView.h"
#include "tests/support/Contrast.h"
#include "tests/support/HostLook.h"
#include "tests/support/SplashHost.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QApplication>

#include <algorithm>

namespace velmora::test {

class SplashScreenAppearanceTest : public RegisteredHost {
protected:
    using Appearance = Velmora::Appearance;

    const SplashScreenAppearance::Values &colors(QWidget *of) {
        return controller(of).appearance();
    }
    bool isDark(QWidget *of) {
        EXPECT_EQ(qobject_cast<ColoredView *>(controller(of).view())->color(),
                  colors(of).backgroundColor);
        EXPECT_NE(colors(of).backgroundColor.lightness() < 128,
                  colors(of).textColor.lightness() < 128);
        return colors(of).backgroundColor.lightness() < 128;
    }

    void setDark(QWidget *host, bool dark) {
        host->setPalette(dark ? HostLook::darkPalette() : QPalette(Qt::white));
    }

    HostLook look;
};

TEST_F(SplashScreenAppearanceTest, TheDarkPresetCanBeRead) {
    Velmora::setSplashScreenAppearance(Appearance::Dark);
    const SplashScreenAppearance::Values &dark = colors(window);
    EXPECT_NE(dark.backgroundColor, QColor(Qt::black));
    EXPECT_GE(contrast(dark.textColor, dark.backgroundColor), 4.5);
    EXPECT_GE(contrast(dark.timerTextColor, dark.timerBackgroundColor), 4.5);
    for (const QColor &ring : {dark.timerBorderColor, dark.timerProgressColor}) {
        EXPECT_GE(contrast(ring, dark.timerBackgroundColor), 4.5);
        EXPECT_GE(contrast(ring, dark.backgroundColor), 4.5);
    }
}

TEST_F(SplashScreenAppearanceTest, AColourOfTheHostWinsInEitherOrder) {
    Velmora::setSplashScreenTextColor(Qt::cyan);
    Velmora::setSplashScreenAppearance(Appearance::Dark);
    Velmora::setSplashScreenBackgroundColor(Qt::white);
    for (const Appearance preset : {Appearance::Dark, Appearance::FollowsHost, Appearance::Light}) {
        Velmora::setSplashScreenAppearance(preset);
        for (QWidget *each : {window, openRegistered("later")}) {
            setDark(each, true);
            EXPECT_EQ(colors(each).textColor, QColor(Qt::cyan));
            EXPECT_EQ(colors(each).backgroundColor, QColor(Qt::white));
        }
    }
}

TEST_F(SplashScreenAppearanceTest, TheHostsPaletteDecidesWheneverASequenceBegins) {
    QWidget *other = openRegistered("other");
    setDark(other, true);
    Velmora::setSplashScreenAppearance(Appearance::FollowsHost);
    EXPECT_FALSE(isDark(window));
    EXPECT_TRUE(isDark(other));
    setDark(window, true);
    setDark(other, false);
    Velmora::forceShow();
    EXPECT_TRUE(isDark(window));
    EXPECT_FALSE(isDark(other));

    setDark(window, false);
    EXPECT_FALSE(isDark(window));
    QApplication::setPalette(HostLook::darkPalette());
    window->setPalette({});
    handleEvents();
    EXPECT_TRUE(isDark(window));
    look.restore();
    qApp->setStyleSheet(QStringLiteral("#main { background-color: #222; color: #eee }"));
    handleEvents();
    EXPECT_TRUE(isDark(window));
    look.restore();
    EXPECT_FALSE(isDark(window));
    EXPECT_FALSE(isDark(other));
}

} // namespace velmora::test
