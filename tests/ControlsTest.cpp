// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "ColoredButtonCell.h"
#include "InterfaceLoader.h"
#include "PlainView.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TestGif.h"
#include "tests/support/VirtualTime.h"
#include "tests/support/Waiting.h"

#include <Velmora/Velmora.h>

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <algorithm>
#include <vector>

namespace velmora::test {

namespace {

QColor pixel(QWidget &widget, QPoint point) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(point * image.devicePixelRatio());
}

} // namespace

class BannerImageViewTest : public FreshProcess {
protected:
    BannerImageViewTest() {
        window.resize(300, 200);
        view = new BannerImageView(&window);
        view->setGeometry(10, 10, 182, 22);
    }

    /// Shows a picture from a file of its own.
    void setPicture(const QByteArray &bytes) {
        const QString name = QStringLiteral("%1.gif").arg(++pictureCount);
        putInCaches(name, bytes);
        view->setImage(cachesFolder() + QLatin1Char('/') + name);
    }

    /// Whether frames are being decoded.
    bool decodes() {
        const int before = view->decodedFrames();
        return eventually([&] { return view->decodedFrames() > before + 3; }, 400);
    }

    QWidget window;
    BannerImageView *view;
    const QByteArray animation = gif({Qt::red, Qt::green, Qt::blue}, {182, 22}, 2);
    int pictureCount = 0;
};

TEST_F(BannerImageViewTest, DecodesOnlyWhileItCanBeSeen) {
    setPicture(animation);
    EXPECT_FALSE(decodes());
    EXPECT_EQ(view->decodedFrames(), 0);
    window.show();
    EXPECT_TRUE(eventually([&] { return decodes(); }));

    // Covered by an opaque widget of the host.
    QWidget cover(&window);
    cover.setAttribute(Qt::WA_OpaquePaintEvent);
    cover.setGeometry(window.rect());
    const std::pair<std::function<void(bool)>, const char *> ways[] = {
        {[&](bool hides) { window.setHidden(hides); }, "window"},
        {[&](bool hides) { view->setHidden(hides); }, "view"},
        {[&](bool hides) { cover.setVisible(hides); }, "cover"}};
    cover.hide();
    for (const auto &[hide, what] : ways) {
        hide(true);
        quietly(80);
        EXPECT_FALSE(decodes()) << what;
        hide(false);
        EXPECT_TRUE(eventually([&] { return decodes(); })) << what;
    }
}

// The brightness of the pixels in a widget's middle row.
static std::vector<int> middleRow(QWidget &widget) {
    const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    const uchar *row = image.constScanLine(image.height() / 2);
    return {row, row + image.width()};
}

static QByteArray pngOf(const QImage &image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "png"));
    return bytes;
}

TEST_F(BannerImageViewTest, APictureOfOneFrameIsSharpAtEverySizeAfterAnyOther) {
    const QSize whole(1456, 180);
    QImage halves(whole, QImage::Format_RGB32);
    halves.fill(Qt::black);
    QPainter(&halves).fillRect(728, 0, 728, 180, Qt::white);
    window.resize(900, 400);
    window.show();
    const auto drawnAt = [&](const QSize &size) {
        view->setNominalHeight(size.height());
        view->resize(size);
        quietly(30);
        const int decoded = view->decodedFrames();
        const auto row = middleRow(*view);
        // Drawn again at the same size it is not decoded again.
        EXPECT_EQ(view->decodedFrames(), decoded);
        return row;
    };
    for (const QByteArray &picture : {stillGif(Qt::black, Qt::white, whole), pngOf(halves)}) {
        setPicture(picture);
        for (const QSize &size : {QSize(91, 11), QSize(364, 45), QSize(728, 90), QSize(809, 100)}) {
            drawnAt(size);
            EXPECT_TRUE(eventually([&] {
                const auto row = middleRow(*view);
                return std::count_if(row.begin(), row.end(),
                                     [](int c) { return c > 8 && c < 247; }) <= 3;
            })) << picture.left(4).constData()
                << " at width " << size.width();
        }
    }
    // At a smaller size, stripes of one pixel become grey; without smoothing they would alias.
    for (int x = 0; x < whole.width(); x += 12)
        QPainter(&halves).fillRect(x, 0, 6, 180, x < 728 ? Qt::white : Qt::black);
    setPicture(pngOf(halves));
    drawnAt({728, 90});
    drawnAt({91, 11});
    EXPECT_TRUE(eventually([&] {
        const auto row = middleRow(*view);
        return std::all_of(row.begin(), row.end(), [](int c) { return std::abs(c - 128) <= 70; });
    }));
}

TEST_F(BannerImageViewTest, AnAnimationThatHasEndedIsSharpAtItsNewSize) {
    QByteArray once = gif({Qt::red, Qt::green}, {182, 22}, 2);
    once.remove(once.indexOf("\x21\xff\x0b"), 19);
    setPicture(once);
    window.show();
    ASSERT_TRUE(eventually([&] { return view->decodedFrames() == 2; }));
    quietly(80);
    EXPECT_EQ(view->decodedFrames(), 2);
    view->setNominalHeight(60);
    EXPECT_TRUE(eventually([&] { return view->decodedFrames() == 3; }, 2000));
    EXPECT_EQ(pixel(*view, {90, 11}), QColor(Qt::green));
}

// The file is written anew while its picture is hidden. So its colour tells whether it was decoded
// again.
TEST_F(BannerImageViewTest, KeepsNoFramesOfWhatHasBeenHiddenForAMinute) {
    VirtualTime time;
    window.show();
    const auto shows = [&](const QColor &color) {
        return eventually([&] {
            time.advance(0.3); // a picture fades in over the one before it
            return pixel(*view, {90, 11}) == color;
        });
    };
    for (const qsizetype frames : {1, 2}) {
        setPicture(gif(QList<QColor>(frames, Qt::red)));
        EXPECT_EQ(view->isAnimation(), frames == 2); // though both say that they are repeated
        ASSERT_TRUE(shows(Qt::red));
        QFile file(cachesFolder() + QStringLiteral("/%1.gif").arg(pictureCount));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(gif(QList<QColor>(frames, Qt::blue)));
        file.close();
        window.hide();
        time.advance(59);
        if (frames == 1) { // drawing an animation would go on with it
            EXPECT_EQ(pixel(*view, {90, 11}), QColor(Qt::red));
        }
        time.advance(2);
        window.show();
        EXPECT_TRUE(shows(Qt::blue)) << frames;
        // At most that of an animation's next frame.
        EXPECT_LE(time.timerCount(), size_t(frames - 1));
    }
}

TEST_F(BannerImageViewTest, APointerThatLeavesAndComesBackIsOnePress) {
    window.show();
    int presses = 0;
    int clicks = 0;
    QObject::connect(view, &BannerImageView::wentDown, [&] { ++presses; });
    QObject::connect(view, &QAbstractButton::clicked, [&] { ++clicks; });
    QTest::mousePress(view, Qt::LeftButton, {}, {50, 10});
    QTest::mouseMove(view, {50, 100});
    QTest::mouseMove(view, {60, 10});
    QTest::mouseRelease(view, Qt::LeftButton, {}, {60, 10});
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(clicks, 1);
    view->click();
    EXPECT_EQ(presses, 2);
}

class ButtonsTest : public FreshProcess {};

TEST_F(ButtonsTest, ColoredButtonsTakeTheColoursOfTheirState) {
    ColoredButtonCell button;
    button.resize(60, 30);
    button.setProperty("defaultColor", QColor(Qt::blue));
    button.setProperty("highlightedColor", QColor(Qt::green));
    button.setProperty("disabledColor", QColor(Qt::gray));
    EXPECT_EQ(pixel(button, {1, 1}), QColor(Qt::blue));
    button.setDown(true);
    EXPECT_EQ(pixel(button, {1, 1}), QColor(Qt::green));
    button.setEnabled(false);
    EXPECT_EQ(pixel(button, {1, 1}), QColor(Qt::gray));
    button.setEnabled(true);
    button.setDown(false);
    button.setProperty("circle", true);
    EXPECT_NE(pixel(button, {1, 1}), QColor(Qt::blue));
    EXPECT_EQ(pixel(button, {30, 15}), QColor(Qt::blue));

    button.setText(QStringLiteral("███"));
    button.setProperty("titleDefaultColor", QColor(Qt::white));
    EXPECT_EQ(pixel(button, {30, 15}), QColor(Qt::white));
}

TEST_F(ButtonsTest, TheCloseButtonDrawsItsImageInACircle) {
    QPixmap white(64, 64);
    white.fill(Qt::white);
    CloseButtonCell button;
    button.setIcon(QIcon(white));
    button.resize(24, 24);
    const QColor corner = pixel(button, {2, 2});
    EXPECT_NE(corner, QColor(Qt::white));
    EXPECT_GT(pixel(button, {12, 12}).lightness(), corner.lightness());
}

TEST_F(ButtonsTest, AnElementMissingInAnInterfaceResourceIsLogged) {
    Velmora::activateDebugMode();
    EXPECT_EQ(InterfaceLoader::load(QStringLiteral("None")), nullptr);
    EXPECT_TRUE(hasLogged("interface resource None is missing"));
    InterfaceLoader::registerClass<PlainView>(QStringLiteral("PlainView"));
    InterfaceLoader::registerClass<BannerImageView>(QStringLiteral("BannerImageView"));
    InterfaceLoader::registerClass<CloseButtonCell>(QStringLiteral("CloseButtonCell"));
    const std::unique_ptr<QWidget> root(InterfaceLoader::load(QStringLiteral("BannerController")));
    ASSERT_TRUE(root);
    EXPECT_EQ(InterfaceLoader::outlet<QWidget>(root.get(), QStringLiteral("nobody")), nullptr);
    EXPECT_TRUE(hasLogged("interface resource bannerView has no nobody"));
}

} // namespace velmora::test
