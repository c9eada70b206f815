// SPDX-License-Identifier: Apache-2.0
#include "VideoView.h"
#include "tests/support/Printing.h"
#include "tests/support/Waiting.h"

#include <QtGui/QPaintEvent>

#include <gtest/gtest.h>

namespace velmora::test {

namespace {

// Stripes one pixel wide, which any resampling would change.
QImage stripes(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, x % 2 ? 0xffffffff : 0xffff0000);
    }
    return image;
}

QImage drawn(VideoView &view) {
    const double scale = view.devicePixelRatioF();
    QImage image((QSizeF(view.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::green);
    view.render(&image);
    return image;
}

} // namespace

TEST(VideoViewTest, AFrameOfTheViewsSizeIsDrawnWithoutResampling) {
    VideoView view;
    view.resize(160, 90);
    const QImage picture = stripes((QSizeF(view.size()) * view.devicePixelRatioF()).toSize());
    view.showFrame(picture);
    QImage shown = drawn(view);
    shown.setDevicePixelRatio(1);
    EXPECT_EQ(shown, picture);
}

TEST(VideoViewTest, AFrameIsScaledToFitAndTheRestIsBlack) {
    const struct {
        QSize view;
        QRectF picture;
    } cases[] = {{{160, 200}, {0, 55, 160, 90}},
                 {{320, 90}, {80, 0, 160, 90}},
                 {{320, 180}, {0, 0, 320, 180}},
                 {{80, 60}, {0, 7.5, 80, 45}}};
    QImage red(160, 90, QImage::Format_RGB32);
    red.fill(Qt::red);
    for (const auto &[size, place] : cases) {
        SCOPED_TRACE(size.width());
        VideoView view;
        view.resize(size);
        EXPECT_EQ(drawn(view).pixel(0, 0), 0xff000000) << "there is no frame yet";
        view.showFrame(red);
        const double pixel = 1 / view.devicePixelRatioF();
        const QImage image = drawn(view);
        const auto at = [&](QPointF point) { return image.pixel((point / pixel).toPoint()); };
        EXPECT_EQ(at(place.center()), 0xffff0000);
        EXPECT_EQ(at(place.topLeft() + QPointF(2, 2)), 0xffff0000);
        for (const QPointF bar : {QPointF(place.left() - 3, 30), QPointF(place.right() + 3, 30),
                                  QPointF(30, place.top() - 3), QPointF(30, place.bottom() + 3)}) {
            if (QRectF(QPointF(), QSizeF(size)).contains(bar)) {
                EXPECT_EQ(at(bar), 0xff000000);
            }
        }
        // No line of the green background is left between frame and bars.
        for (int y = 0; y < image.height(); ++y)
            EXPECT_EQ(qGreen(image.pixel(image.width() / 2, y)), 0) << y;
    }
}

TEST(VideoViewTest, SeveralNewFramesRepaintTheFrameRectOnce) {
    struct Watched : VideoView {
        std::vector<QRect> painted;
        void paintEvent(QPaintEvent *event) override {
            painted.push_back(event->region().boundingRect());
            VideoView::paintEvent(event);
        }
    };
    QWidget window;
    window.resize(200, 300);
    Watched view;
    view.setParent(&window);
    view.resize(160, 200);
    window.show();
    QImage picture(160, 90, QImage::Format_RGB32);
    picture.fill(Qt::red);
    view.showFrame(picture);
    handleEvents();
    view.painted.clear();
    for (int i = 0; i < 3; ++i)
        view.showFrame(picture);
    handleEvents();
    EXPECT_EQ(view.painted, std::vector{view.frameRect().toAlignedRect()});
}

} // namespace velmora::test
