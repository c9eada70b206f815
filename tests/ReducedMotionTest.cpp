// SPDX-License-Identifier: Apache-2.0
#include "ReducedMotion.h"

#include "Animator.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "PlayButton.h"
#include "RemoveAdsButton.h"
#include "tests/support/BannerHost.h"
#include "tests/support/SettingsPortal.h"
#include "tests/support/TestGif.h"
#include "tests/support/Waiting.h"

#include <QtTest/QTest>

namespace velmora::test {

class ReducedMotionTest : public BannerHost {
protected:
    ReducedMotionTest() {
        // Frames of 20 ms; frames are decoded in real time.
        server.campaign().setMedia(QStringLiteral("/media/one.gif"),
                                   gif({Qt::red, Qt::green, Qt::blue}, {728, 90}, 2));
        Velmora::setMotion(Velmora::Motion::Reduced);
    }

    BannerImageView &picture() { return *current()->bannerImage(); }
    PlayButton &play() { return *picture().findChild<PlayButton *>(); }
    QColor color() {
        const QImage image = picture().grab().toImage();
        return image.pixelColor(image.rect().center());
    }
    /// Whether frames go by in a second.
    bool plays() {
        const int before = picture().decodedFrames();
        for (int i = 0; i < 10; ++i) {
            time.advance(0.1);
            quietly(5);
        }
        return picture().decodedFrames() > before + 2;
    }
};

TEST_F(ReducedMotionTest, ABannerStandsOnItsFirstPictureUntilItIsPlayed) {
    showOneOf({QStringLiteral("one")});
    ASSERT_TRUE(eventually([&] { return color() == QColor(Qt::red); }));
    EXPECT_FALSE(plays());
    EXPECT_EQ(color(), QColor(Qt::red));

    // The button is drawn, has a name and keeps clear of the close button.
    ASSERT_TRUE(play().isVisible());
    EXPECT_EQ(play().accessibleName(), QStringLiteral("Play animation"));
    EXPECT_GE(play().width(), 24);
    EXPECT_TRUE(picture().rect().contains(play().geometry()));
    EXPECT_FALSE(play().geometry().intersects(current()->closeButton()->geometry()));
    const QImage drawn = play().grab().toImage();
    EXPECT_EQ(drawn.pixelColor(drawn.rect().center()), QColor(Qt::white));

    const QPoint middle = play().mapTo(window.get(), play().rect().center());
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, middle);
    EXPECT_TRUE(plays());
    EXPECT_EQ(play().accessibleName(), QStringLiteral("Stop animation"));
    EXPECT_EQ(opened, QList<QUrl>()) << "the button is not the ad";
    // From the keyboard, too.
    play().setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(play().hasFocus());
    QTest::keyClick(window->windowHandle(), Qt::Key_Space);
    EXPECT_FALSE(plays());
    QTest::keyClick(window->windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(plays());

    // What is shown follows a change of the setting.
    Velmora::setMotion(Velmora::Motion::Full);
    EXPECT_FALSE(play().isVisible());
    EXPECT_TRUE(plays());
    Velmora::setMotion(Velmora::Motion::Reduced);
    EXPECT_TRUE(eventually([&] { return color() == QColor(Qt::red); }));
    EXPECT_FALSE(plays());
    EXPECT_EQ(play().focusPolicy(), Qt::TabFocus);
    Velmora::setBannersInTabOrder(false);
    EXPECT_EQ(play().focusPolicy(), Qt::NoFocus);
    Velmora::setMotion(Velmora::Motion::Full);
    Velmora::setMotion(Velmora::Motion::Reduced);
    EXPECT_EQ(play().focusPolicy(), Qt::NoFocus);
    Velmora::setMotion(Velmora::Motion::Reduced);
    EXPECT_TRUE(play().isVisible());
    EXPECT_FALSE(plays());
}

TEST_F(ReducedMotionTest, NothingFadesAndNothingShines) {
    showOneOf({QStringLiteral("one")});
    auto *button = new RemoveAdsButton(window.get());
    button->setProperty("isAnimation", true);
    button->setGeometry(0, 0, 200, 40);
    button->show();
    handleEvents();
    const QImage still = button->grab().toImage();
    EXPECT_EQ(button->animationTimer(), nullptr);
    Velmora::setMotion(Velmora::Motion::Full);
    time.advance(0.6);
    EXPECT_NE(button->grab().toImage(), still);
    Velmora::setMotion(Velmora::Motion::Reduced);
    handleEvents();
    EXPECT_EQ(button->grab().toImage(), still);
    EXPECT_FALSE(button->animationTimer()->isValid());

    Animator::setHidden(button, true);
    EXPECT_FALSE(button->isVisible());
    Animator::setHidden(button, false);
    EXPECT_EQ(button->graphicsEffect(), nullptr);
    EXPECT_TRUE(button->isVisible());
    QWidget *banner = current()->view();
    ASSERT_TRUE(banner->isVisible());
    Velmora::removeAdsNow();
    EXPECT_FALSE(banner->isVisible());
}

// The portal is a stand-in on a real bus; desktops have several, which all answer like this.
TEST_F(ReducedMotionTest, TheDesktopIsAskedAndItsChangesAreFollowed) {
    restartProcess();
    SettingsPortal portal;
    ASSERT_TRUE(portal.isReady()) << "no dbus-daemon";
    portal.set("org.gnome.desktop.interface", "enable-animations", false);
    EXPECT_FALSE(ReducedMotion::current().isOn()) << "nobody has answered yet";
    EXPECT_TRUE(eventually([] { return ReducedMotion::current().isOn(); }));
    Velmora::setMotion(Velmora::Motion::Full);
    EXPECT_FALSE(ReducedMotion::current().isOn());
    Velmora::setMotion(Velmora::Motion::FollowsDesktop);
    EXPECT_TRUE(ReducedMotion::current().isOn());

    int changes = 0;
    QObject::connect(&ReducedMotion::current(), &ReducedMotion::changed, [&] { ++changes; });
    const auto follows = [&](const char *space, const char *key, const QVariant &value,
                             bool reduced) {
        portal.set(space, key, value);
        return eventually([=] { return ReducedMotion::current().isOn() == reduced; }, 5000);
    };
    EXPECT_TRUE(follows("org.gnome.desktop.interface", "enable-animations", true, false));
    EXPECT_TRUE(follows("org.freedesktop.appearance", "reduced-motion", 1u, true));
    EXPECT_TRUE(follows("org.freedesktop.appearance", "reduced-motion", 0u, false));
    const QString none = QStringLiteral("0");
    const QString half = QStringLiteral("0.5");
    EXPECT_TRUE(follows("org.kde.kdeglobals.KDE", "AnimationDurationFactor", none, true));
    EXPECT_TRUE(follows("org.kde.kdeglobals.KDE", "AnimationDurationFactor", half, false));
    EXPECT_EQ(changes, 5);
}

} // namespace velmora::test
