// SPDX-License-Identifier: Apache-2.0
#include "tests/support/LargePictures.h"

#include "tests/support/TestGif.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>

namespace velmora::test {

namespace {

constexpr QSize StillSize(6000, 4000);
constexpr QSize FrameSize(2000, 1000);

// With fine structure, so that decoding costs what it costs for a photograph.
QImage picture() {
    QImage image(StillSize, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgb(x / 24, y / 16, (x * y / 97) & 63);
    }
    return image;
}

QByteArray written(const QImage &image, const char *format, bool isProgressive) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setProgressiveScanWrite(isProgressive);
    writer.write(image);
    return bytes;
}

} // namespace

QList<LargePicture> LargePicture::all() {
    const QImage image = picture();
    QList<LargePicture> pictures{
        {QStringLiteral("png"), QStringLiteral("png"), written(image, "png", false)},
        {QStringLiteral("jpeg"), QStringLiteral("jpg"), written(image, "jpeg", false)},
        {QStringLiteral("progressive jpeg"), QStringLiteral("jpg"), written(image, "jpeg", true)},
        {QStringLiteral("webp"), QStringLiteral("webp"), written(image, "webp", false)},
        {QStringLiteral("animated gif"), QStringLiteral("gif"),
         gif({Qt::red, Qt::green, Qt::blue}, FrameSize, 10)}};
    // Qt may lack the plugin for a format.
    pictures.removeIf([](const LargePicture &picture) { return picture.bytes.isEmpty(); });
    return pictures;
}

} // namespace velmora::test
