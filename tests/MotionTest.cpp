// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"
#include "RemoveAdsButton.h"
#include "TimeProgressView.h"
#include "tests/support/Contrast.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TestGif.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <algorithm>

namespace velmora::test {

class MotionTest : public FreshProcess {
protected:
    MotionTest() { window.resize(600, 200); }

    void show() {
        window.show();
        handleEvents();
    }

    VirtualTime time;
    QWidget window;
};

// A second button without a title shines in the same way, so its pixels are what is behind the
// letters.
TEST_F(MotionTest, TheTitleStaysReadableDuringTheShineAndWhilePressed) {
    window.setPalette(QPalette(Qt::black)); // the darkest that a pressed face lets through
    const auto add = [&](const QString &title, int y) {
        auto *button = new RemoveAdsButton(&window);
        button->setProperty("isAnimation", true);
        button->setProperty("stringColor", QColor(Qt::black));
        button->setFocusPolicy(Qt::NoFocus);
        QFont font = window.font();
        font.setPixelSize(24);
        font.setWeight(QFont::Black);
        button->setTitleFont(font);
        button->setText(title);
        button->setGeometry(10, y, 220, 48);
        return button;
    };
    RemoveAdsButton *titled = add(QStringLiteral("Remove ads"), 10);
    RemoveAdsButton *bare = add({}, 80);
    show();
    const auto picture = [&](const RemoveAdsButton *button) {
        return window.grab(button->geometry()).toImage();
    };
    // Where the letters cover whole pixels.
    time.advance(3);
    const QImage rest = picture(titled);
    QList<QPoint> letters;
    for (int y = 0; y < rest.height(); ++y) {
        for (int x = 0; x < rest.width(); ++x) {
            if (rest.pixelColor(x, y) == QColor(Qt::black))
                letters.append({x, y});
        }
    }
    ASSERT_GT(letters.size(), 300);
    double least = 21;
    double brightest = 0;
    for (int frame = 0; frame < 90; ++frame) {
        time.advance(1.0 / 30);
        const bool isPressed = frame % 3 == 2;
        titled->setDown(isPressed);
        bare->setDown(isPressed);
        const QImage with = picture(titled);
        const QImage without = picture(bare);
        for (const QPoint &point : std::as_const(letters)) {
            least = std::min(least, contrast(with.pixelColor(point), without.pixelColor(point)));
            brightest = std::max(brightest, luminance(without.pixelColor(point)));
        }
    }
    EXPECT_GE(least, 4.5);
    EXPECT_GT(brightest, 0.8) << "the shine has passed behind the letters";

    // There is no shine behind a title that is as bright.
    titled->setProperty("stringColor", QColor(Qt::white));
    titled->setDown(false);
    time.advance(6);
    EXPECT_FALSE(titled->animationTimer()->isValid());
}

TEST_F(MotionTest, TheRingGrowsEvenlyBetweenItsSteps) {
    auto *ring = new TimeProgressView(&window);
    ring->setGeometry(10, 10, 108, 108);
    ring->setProgressColor(Qt::red);
    ring->setBackgroundProgressColor(Qt::blue);
    ring->setWidthBorder(10);
    show();
    // How much of the ring is red, in degrees.
    const auto grown = [&] {
        const QImage image = window.grab(ring->geometry()).toImage();
        double red = 0;
        double all = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                if (color.red() + color.blue() < 200 || color.green() > 60)
                    continue;
                all += color.red() + color.blue();
                red += color.red();
            }
        }
        return 360 * red / all;
    };
    ring->startTimerFromSec(0, 10);
    time.advance(2);
    double before = grown();
    EXPECT_NEAR(before, ring->val1() * 3.6, 2);
    double largest = 0;
    for (int i = 0; i < 100; ++i) {
        const qint64 step = ring->val1();
        time.advance(0.02);
        const double now = grown();
        EXPECT_GE(now, before - 0.2);
        largest = std::max(largest, now - before);
        EXPECT_NEAR(now, double(ring->val1()) * 3.6 + 1.8, 3)
            << "the step " << step << " as written";
        before = now;
    }
    EXPECT_EQ(ring->val1(), 41);
    EXPECT_LT(largest, 2) << "degrees in a fiftieth of a second; a step is 3.6";

    // A pause neither moves it on nor back.
    time.advance(0.05);
    const double paused = grown();
    ring->stop();
    time.advance(10);
    EXPECT_NEAR(grown(), paused, 0.3);
    EXPECT_EQ(time.timerCount(), 0u);
    ring->complite();
    handleEvents();
    EXPECT_NEAR(grown(), paused, 0.3);
    EXPECT_EQ(ring->val1(), 41);

    // Hidden, and where motion is reduced, there is nothing between the steps.
    window.hide();
    EXPECT_EQ(time.timerCount(), 0u);
    Velmora::setMotion(Velmora::Motion::Reduced);
    show();
    time.advance(1);
    EXPECT_EQ(time.timerCount(), 1u);
}

TEST_F(MotionTest, ABannerFadesInOverTheOneBeforeIt) {
    window.setPalette(QPalette(Qt::green));
    auto *view = new BannerImageView(&window);
    view->setGeometry(10, 10, 182, 22);
    putInCaches("red.gif", stillGif(Qt::red, Qt::red, {182, 22}));
    putInCaches("blue.gif", stillGif(Qt::blue, Qt::blue, {182, 22}));
    const auto color = [&] {
        const QImage image = window.grab().toImage();
        return image.pixelColor(QPoint(100, 20) * image.devicePixelRatio());
    };
    view->setImage(cachesFolder() + QStringLiteral("/red.gif"));
    show();
    ASSERT_TRUE(eventually([&] { return color() == QColor(Qt::red); }));
    view->setImage(cachesFolder() + QStringLiteral("/blue.gif"));
    ASSERT_TRUE(eventually([&] { return time.timerCount() == 1; })) << "the cross-fade";
    EXPECT_EQ(color(), QColor(Qt::red));
    for (int frame = 1; frame < 5; ++frame) {
        time.advance(0.05);
        EXPECT_NEAR(color().blue(), 255 * frame / 5, 10);
        EXPECT_NEAR(color().red(), 255 - 255 * frame / 5, 10);
        EXPECT_LT(color().green(), 5) << "what is behind the banner";
    }
    time.advance(0.1);
    EXPECT_EQ(color(), QColor(Qt::blue));
    EXPECT_EQ(time.timerCount(), 0u);

    Velmora::setMotion(Velmora::Motion::Reduced);
    view->setImage(cachesFolder() + QStringLiteral("/red.gif"));
    EXPECT_TRUE(eventually([&] { return color() == QColor(Qt::red); }));
    EXPECT_EQ(time.timerCount(), 0u);
}

} // namespace velmora::test
