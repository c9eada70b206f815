// SPDX-License-Identifier: Apache-2.0
#include "TimeProgressView.h"

#include "Animator.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <QtWidgets/QLabel>

#include <cmath>
#include <limits>

namespace velmora::test {

namespace {

/// Of a colour channel in any pixel.
int greatestDifference(const QPixmap &one, const QPixmap &other) {
    const QImage first = one.toImage();
    const QImage second = other.toImage();
    int greatest = 0;
    for (qsizetype i = 0; i < first.sizeInBytes(); ++i)
        greatest = std::max(greatest, std::abs(first.constBits()[i] - second.constBits()[i]));
    return greatest;
}

} // namespace

class TimeProgressViewTest : public FreshProcess {
protected:
    TimeProgressViewTest() {
        window.resize(200, 200);
        ring->setGeometry(50, 50, 80, 80);
        ring->setBackgroundColor(Qt::black);
        ring->setBackgroundProgressColor(Qt::blue);
        ring->setProgressColor(Qt::red);
        ring->setWidthBorder(6);
        ring->setWidthProgress(6);
    }

    void show() {
        window.show();
        handleEvents();
    }

    /// The ring's colour at an angle clockwise from twelve o'clock, so far inside its edge.
    QColor colorAt(double degrees, double inside) {
        const QImage image = window.grab().toImage();
        const double angle = degrees * 3.14159265 / 180;
        const QPointF at =
            QPointF(90, 90) + QPointF(std::sin(angle), -std::cos(angle)) * (40 - inside);
        return image.pixelColor((at * image.devicePixelRatio()).toPoint());
    }

    VirtualTime time;
    QWidget window;
    TimeProgressView *ring = new TimeProgressView(&window);
};

TEST_F(TimeProgressViewTest, ACountdownTakesAHundredTicks) {
    show();
    ring->startTimerFromSec(0, 10);
    EXPECT_EQ(ring->val1(), 0);
    EXPECT_TRUE(ring->timer()->firesDuringTracking());
    handleEvents();
    EXPECT_EQ(ring->val1(), 1);
    time.advance(5);
    EXPECT_EQ(ring->val1(), 51);
    time.advance(4.8);
    EXPECT_EQ(ring->val1(), 99);
    EXPECT_TRUE(ring->timer()->isValid());
    time.advance(0.1);
    EXPECT_EQ(ring->val1(), 100);
    EXPECT_EQ(time.timerCount(), 0u);

    ring->startTimerFromSec(5, 10);
    EXPECT_EQ(ring->val1(), 50);
    ring->startTimerFromSec(1, 3);
    EXPECT_EQ(ring->val1(), 33);
    EXPECT_EQ(time.timerCount(), 1u);
}

TEST_F(TimeProgressViewTest, ItGrowsClockwiseFromTwelve) {
    ring->startTimerFromSec(24, 100);
    show();
    EXPECT_EQ(colorAt(5, 3), QColor(Qt::red));
    EXPECT_EQ(colorAt(85, 3), QColor(Qt::red));
    EXPECT_EQ(colorAt(45, 9), QColor(Qt::red));
    EXPECT_EQ(colorAt(95, 3), QColor(Qt::blue));
    EXPECT_EQ(colorAt(355, 3), QColor(Qt::blue));
    EXPECT_EQ(colorAt(225, 9), QColor(Qt::black));
    EXPECT_EQ(colorAt(45, 15), QColor(Qt::black));
    EXPECT_EQ(colorAt(45, -2), window.palette().color(QPalette::Window));

    ring->startTimerFromSec(50, 100);
    handleEvents();
    EXPECT_EQ(colorAt(181, 3), QColor(Qt::red));
    EXPECT_EQ(colorAt(187, 3), QColor(Qt::blue));

    // Beyond 100 the ring stays full and goes on ticking.
    ring->startTimerFromSec(15, 10);
    time.advance(1);
    EXPECT_GT(ring->val1(), 155);
    EXPECT_EQ(colorAt(1, 3), QColor(Qt::red));
    EXPECT_EQ(colorAt(180, 3), QColor(Qt::red));
    EXPECT_EQ(time.timerCount(), 1u);
}

TEST_F(TimeProgressViewTest, EveryRedrawIsAStepAndPaintingTheSameRingAgainIsNone) {
    QWidget video(&window);
    video.setGeometry(window.rect());
    video.lower();
    QLabel label(QStringLiteral("5"), ring);
    show();
    ring->startTimerFromSec(0, 1000);
    handleEvents();
    EXPECT_EQ(ring->val1(), 1);
    ring->refresh();
    handleEvents();
    EXPECT_EQ(ring->val1(), 2);
    ring->resize(90, 90);
    handleEvents();
    EXPECT_EQ(ring->val1(), 3);
    ring->hide();
    ring->show();
    handleEvents();
    EXPECT_EQ(ring->val1(), 4);
    for (int frame = 0; frame < 20; ++frame) {
        video.update();
        label.setText(QString::number(frame));
        handleEvents();
    }
    EXPECT_EQ(ring->val1(), 4);
    // Nor is it a step when the view around the ring fades.
    Animator::setHidden(&video, true);
    time.advance(1);
    EXPECT_EQ(ring->val1(), 4);
}

TEST_F(TimeProgressViewTest, DrawnStepByStepItLooksAsDrawnAtOnce) {
    for (const double density : {1.0, 1.25, 2.0}) {
        const RingPicture::Look look{.size = {81, 80},
                                     .density = density,
                                     .disc = QColor(0, 0, 0, 120),
                                     .remaining = QColor(0, 0, 255, 120),
                                     .elapsed = Qt::red,
                                     .remainingWidth = 6,
                                     .elapsedWidth = 9};
        RingPicture growing;
        growing.draw(look, 0);
        for (const double sweep : {1, 3, 40, 89, 90, 91, 200, 340, 359, 360, 120}) {
            // Arcs that begin elsewhere differ a little on their edges.
            RingPicture().draw(look, 7); // or the two would share their pixels
            growing.draw(look, sweep);
            RingPicture().draw(look, 7);
            RingPicture once;
            once.draw(look, sweep);
            EXPECT_LE(greatestDifference(growing.pixmap(), once.pixmap()), 40)
                << density << " " << sweep;
        }
        const QRect step = growing.changeTo(look, 123);
        EXPECT_LT(step.width() * step.height(), 300);
    }
}

TEST_F(TimeProgressViewTest, UnseenItHasNoTimerAndCatchesUpWhenSeenAgain) {
    ring->startTimerFromSec(0, 100);
    EXPECT_EQ(time.timerCount(), 0u);
    time.advance(10);
    show();
    EXPECT_EQ(ring->val1(), 11);
    EXPECT_EQ(time.timerCount(), 2u);

    window.hide();
    EXPECT_EQ(time.timerCount(), 0u);
    time.advance(20);
    show();
    EXPECT_EQ(ring->val1(), 32);

    // Its steps come when they would have come.
    window.hide();
    time.advance(2.5);
    show();
    EXPECT_EQ(ring->val1(), 35);
    time.advance(0.4);
    EXPECT_EQ(ring->val1(), 35);
    time.advance(0.2);
    EXPECT_EQ(ring->val1(), 36);

    // When the ring is stopped while it cannot be seen, the steps that were due until then count.
    window.hide();
    time.advance(5);
    ring->stop();
    const qint64 stopped = ring->val1();
    EXPECT_NEAR(double(stopped), 41, 1);
    time.advance(500);
    EXPECT_EQ(ring->val1(), stopped);
    ring->complite();
    time.advance(500);
    show();
    EXPECT_EQ(ring->val1(), 100);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(TimeProgressViewTest, OddNumbersDoNoHarm) {
    show();
    ring->complite();
    EXPECT_GE(ring->timer()->interval(), std::chrono::milliseconds(16));
    const float infinite = std::numeric_limits<float>::infinity();
    const float odd[] = {0, -7, 1e-30f, 1e-4f, 1e38f, infinite, -infinite, std::nanf("")};
    for (float end : odd) {
        for (float from : odd) {
            ring->startTimerFromSec(from, end);
            EXPECT_GE(ring->timer()->interval(), std::chrono::milliseconds(16));
            time.advance(0.1);
            window.hide();
            time.advance(1e6);
            show();
        }
    }
    ring->setVal1(std::numeric_limits<qint64>::max());
    for (double width : {0.0, -20.0, 500.0, std::nan("")}) {
        ring->setWidthBorder(width);
        ring->setWidthProgress(width);
        ring->refresh();
        handleEvents();
    }
    ring->resize(0, 0);
    window.grab();
}

} // namespace velmora::test
