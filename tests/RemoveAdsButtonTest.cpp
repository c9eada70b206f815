// SPDX-License-Identifier: Apache-2.0
#include "RemoveAdsButton.h"

#include "ColoredView.h"
#include "NSBezierPath+Extension.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtWidgets/QApplication>

#include <cmath>

namespace velmora::test {

namespace {

const QColor Green(79, 177, 7);

QColor blend(const QColor &over, double alpha, const QColor &under) {
    const auto mix = [&](int a, int b) { return int(std::lround(a * alpha + b * (1 - alpha))); };
    return {mix(over.red(), under.red()), mix(over.green(), under.green()),
            mix(over.blue(), under.blue())};
}

} // namespace

class RemoveAdsButtonTest : public FreshProcess {
protected:
    RemoveAdsButtonTest() {
        window.resize(300, 100);
        window.setPalette(QPalette(QColor(Behind)));
        button->setGeometry(20, 20, 200, 40);
        button->setFocusPolicy(Qt::NoFocus);
    }

    void show() {
        window.show();
        handleEvents();
    }

    /// The window as seen, without the shine unless it is running.
    QColor pixel(double x, double y) {
        const QImage image = window.grab(QRect(20, 20, 200, 40)).toImage();
        const double scale = image.devicePixelRatio();
        return image.pixelColor(int(x * scale), int(y * scale));
    }

    void expectPixel(double x, double y, const QColor &wanted, const char *what) {
        const QColor found = pixel(x, y);
        for (auto channel : {&QColor::red, &QColor::green, &QColor::blue})
            EXPECT_NEAR((found.*channel)(), (wanted.*channel)(), 4)
                << what << ": " << found.name().toStdString() << ", not "
                << wanted.name().toStdString();
    }

    /// Rows of the button, points, that hold pixels of a colour; empty range when none does.
    std::pair<double, double> rowsOf(const QColor &color) {
        const QImage image = window.grab(QRect(20, 20, 200, 40)).toImage();
        std::pair<double, double> rows{1e9, -1};
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) != color)
                    continue;
                rows.first = std::min(rows.first, y / image.devicePixelRatio());
                rows.second = (y + 1) / image.devicePixelRatio();
            }
        }
        return rows;
    }

    static constexpr QRgb Behind = 0xff303030;
    VirtualTime time;
    QWidget window;
    RemoveAdsButton *button = new RemoveAdsButton(&window);
};

TEST_F(RemoveAdsButtonTest, TheFaceTakesTheColoursOfItsKindAndState) {
    const QColor top(200, 0, 0), bottom(0, 0, 200);
    button->setProperty("topColor", top);
    button->setProperty("bottomColor", bottom);
    show();
    expectPixel(100, 20, Green, "flat");
    button->setDown(true);
    const QColor pressed = blend(Green, 0.8, QColor(Behind));
    expectPixel(100, 20, pressed, "flat, pressed");

    button->setProperty("isGradient", true);
    button->setDown(false);
    expectPixel(100, 0, top, "top of the gradient");
    expectPixel(100, 20, QColor(100, 0, 100), "middle of the gradient");
    expectPixel(100, 39.6, bottom, "bottom of the gradient");
    button->setEnabled(false);
    expectPixel(100, 0, blend(top, 0.3, Green), "gradient, disabled");
    button->setEnabled(true);
    button->setProperty("topColor", QColor());
    expectPixel(100, 20, Green, "gradient without a colour");

    button->setProperty("topColor", top);
    button->setProperty("isGradient", false);
    button->setProperty("isCircle", true);
    expectPixel(100, 20, top, "circle");
    expectPixel(5, 5, QColor(Behind), "beside the circle");

    // isImage wins over isGradient and isCircle.
    QPixmap blue(64, 64);
    blue.fill(Qt::blue);
    button->setIcon(blue);
    button->setProperty("isCircle", false);
    button->setProperty("isGradient", true);
    button->setProperty("isImage", true);
    expectPixel(1, 1, Qt::blue, "image");
    expectPixel(39, 20, Green, "right of the image");
    expectPixel(20, 39, Green, "below the image");
}

TEST_F(RemoveAdsButtonTest, OnlyButtonsThatLookTheSameShareAPicture) {
    RemoveAdsButton *const other = new RemoveAdsButton(&window);
    other->setGeometry(button->geometry().translated(0, 45));
    other->setFocusPolicy(Qt::NoFocus);
    window.resize(300, 130);
    for (RemoveAdsButton *each : {button, other}) {
        each->setProperty("stringColor", QColor(Qt::white));
        each->setText(QStringLiteral("Remove ads"));
    }
    show();
    const auto picture = [this](const QWidget *of) {
        return window.grab(of->geometry()).toImage();
    };
    const QImage before = picture(button);
    EXPECT_EQ(picture(other), before);
    const auto differs = [&](const char *what) {
        EXPECT_NE(picture(other), before) << what;
        EXPECT_EQ(picture(button), before) << what;
    };
    other->setText(QStringLiteral("Without ads"));
    differs("title");
    other->setText(button->text());
    other->setDown(true);
    differs("state");
    other->setDown(false);
    EXPECT_EQ(picture(other), before);
}

TEST_F(RemoveAdsButtonTest, TheBorderIsARingAroundTheFace) {
    button->setProperty("border", 2.0);
    button->setProperty("cornerRadius", 10.0);
    button->setProperty("borderColor", QColor(Qt::red));
    show();
    expectPixel(100, 1, Qt::red, "border");
    expectPixel(100, 2.6, Green, "face");
    expectPixel(1, 1, QColor(Behind), "outside the corner");
    // On the corner's diagonal the border lies between 10 (1 - 0.707) and 2 + 8 (1 - 0.707).
    expectPixel(3.6, 3.6, Qt::red, "border in the corner");
    expectPixel(5.6, 5.6, Green, "face in the corner");

    button->setProperty("isCircle", true);
    expectPixel(15, 5, Qt::red, "between ellipse and border");
    button->setProperty("isAnimation", true);
    expectPixel(15, 5, QColor(Behind), "a shining circle is cut to its ellipse");
}

TEST_F(RemoveAdsButtonTest, TheTitleIsCentredAndNotCutOff) {
    QFont font = window.font();
    font.setPixelSize(14);
    button->setTitleFont(font);
    button->setProperty("stringColor", QColor(Qt::white));
    button->setText(QStringLiteral("██"));
    show();
    const auto one = rowsOf(Qt::white);
    EXPECT_NEAR((one.first + one.second) / 2, 20 - 1.75, 3);
    // A title that is too wide for one line wraps, and all of it is drawn.
    button->setText(QStringLiteral("██████████ ██████████"));
    const auto two = rowsOf(Qt::white);
    EXPECT_NEAR((two.first + two.second) / 2, 20 - 1.75, 3);
    const double line = one.second - one.first;
    EXPECT_GE(two.second - two.first, 2 * line - 3);
    EXPECT_LE(two.second - two.first, 2.5 * line); // some fonts leave a gap between lines

    button->setText(QStringLiteral("██"));
    button->setEnabled(false);
    expectPixel(93, 18, blend(Qt::white, 0.8, Green), "disabled title");
    button->setProperty("stringColor", QColor());
    expectPixel(100, 18, Green, "title without a colour");
}

TEST_F(RemoveAdsButtonTest, ItsWidthFollowsItsTitle) {
    button->setText(QStringLiteral("Remove Ads"));
    button->setProperty("titleLeading", 12.0);
    button->setFrameSize({150, 30});
    EXPECT_EQ(button->size(), QSize(150, 30));
    button->setProperty("isAutoWidth", true);
    button->setFrameSize({500, 500});
    EXPECT_EQ(button->height(), 30);
    EXPECT_EQ(button->width(), button->sizeHint().width());
    EXPECT_NEAR(button->width(),
                QFontMetricsF(QApplication::font()).horizontalAdvance(button->text()) + 24, 2);
    show();
    button->resize(400, 40);
    EXPECT_EQ(button->width(), button->sizeHint().width());
}

TEST_F(RemoveAdsButtonTest, TheShineStartsOnceAndSweepsEveryFiveSeconds) {
    button->setProperty("isAnimation", true);
    show();
    EXPECT_TRUE(button->isAllDraw());
    EXPECT_EQ(time.timerCount(), 2u);
    const TimerPtr next = button->animationTimer();
    EXPECT_EQ(next->interval(), std::chrono::seconds(5));
    window.grab();
    window.grab();
    EXPECT_EQ(button->animationTimer(), next);

    // The sweep slows down: after half of its time the stripes are far beyond the middle.
    time.advance(0.1);
    expectPixel(199, 20, Green, "the shine comes from the left");
    time.advance(0.5);
    EXPECT_GT(pixel(100, 2).blue(), 100);
    time.advance(1.5);
    for (double x = 2; x < 200; x += 7)
        expectPixel(x, 20, Green, "the shine is over");
    EXPECT_EQ(time.timerCount(), 1u);
    time.advance(2.8);
    EXPECT_EQ(time.timerCount(), 1u);
    time.advance(0.2);
    EXPECT_EQ(time.timerCount(), 2u);
    EXPECT_NE(button->animationTimer(), next);

    button->setProperty("isAnimation", false);
    time.advance(6);
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(RemoveAdsButtonTest, TheShineHasNoTimerWhileTheButtonCannotBeSeen) {
    button->setProperty("isAnimation", true);
    time.advance(10);
    EXPECT_EQ(time.timerCount(), 0u);
    show();
    time.advance(1);
    window.hide();
    EXPECT_EQ(time.timerCount(), 0u);
    show();
    EXPECT_EQ(time.timerCount(), 2u);

    QWidget cover(&window);
    cover.setAttribute(Qt::WA_OpaquePaintEvent);
    cover.setGeometry(window.rect());
    cover.show();
    time.advance(1);
    EXPECT_EQ(time.timerCount(), 0u);
    cover.hide();
    handleEvents();
    EXPECT_EQ(time.timerCount(), 2u);
    delete button;
    EXPECT_EQ(time.timerCount(), 0u);
}

TEST_F(RemoveAdsButtonTest, PathsAreConvertedElementForElement) {
    QPainterPath path({3, 4});
    path.lineTo(10, 4);
    path.addEllipse(20, 20, 5, 5);
    EXPECT_EQ(NSBezierPathExtension::CGPathFromPath(path), path);

    // A path from a damaged stream: its second element is a curve point without a curve.
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32(3) << qint32(0) << 1.0 << 1.0 << qint32(3) << 2.0 << 2.0 << qint32(1) << 3.0
        << 3.0 << qint32(0) << qint32(0);
    QDataStream in(bytes);
    QPainterPath damaged;
    in >> damaged;
    Velmora::activateDebugMode();
    EXPECT_EQ(NSBezierPathExtension::CGPathFromPath(damaged).elementCount(), 2);
    EXPECT_TRUE(hasLogged("Invalid NSBezierPathElement"));
}

TEST_F(RemoveAdsButtonTest, TheColouredViewRoundsItsBottomCornersOnly) {
    button->hide();
    auto *view = new ColoredView(&window);
    view->setGeometry(20, 20, 200, 40);
    show();
    expectPixel(100, 20, QColor(Behind), "no colour");
    view->setColor(Qt::yellow);
    expectPixel(100, 20, Qt::yellow, "inside");
    expectPixel(0.5, 0.5, Qt::yellow, "top corner");
    expectPixel(0.5, 39, QColor(Behind), "bottom left corner");
    expectPixel(199, 39, QColor(Behind), "bottom right corner");
    expectPixel(6.5, 39, Qt::yellow, "bottom edge");
}

} // namespace velmora::test
