// SPDX-License-Identifier: Apache-2.0
#include "ImageView.h"

#include <Velmora/Support.h>

#include <QtGui/QImageReader>
#include <QtGui/QPainter>

namespace velmora {

namespace {

// Pixels of a picture's longer side: as many as a large screen has. A larger file is scaled down
// while it is decoded.
constexpr int LargestSide = 3840;
// Pixels. A file that declares more is not decoded.
constexpr qint64 MostPixels = 100'000'000;

} // namespace

ImageView::ImageView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageView::setImage(const QImage &image) {
    m_image = image;
    m_scaled = {};
    update();
}

void ImageView::setImageFile(const QString &path) {
    QImageReader reader(path);
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > MostPixels) {
        LOG(QStringLiteral("picture %1 was refused: it is too large").arg(path));
        setImage({});
        return;
    }
    if (size.width() > LargestSide || size.height() > LargestSide)
        reader.setScaledSize(size.scaled(LargestSide, LargestSide, Qt::KeepAspectRatio));
    const QImage image = reader.read();
    if (image.isNull())
        LOG(QStringLiteral("picture %1 cannot be read: %2").arg(path, reader.errorString()));
    setImage(image);
}

void ImageView::setImageScaling(unsigned scaling) {
    m_scaling = scaling;
    m_scaled = {};
    update();
}

QRectF ImageView::imageRect() const {
    if (m_image.isNull())
        return {};
    const QSizeF own = m_image.deviceIndependentSize();
    QSizeF wanted = own;
    if (m_scaling == ScaleAxesIndependently)
        wanted = size();
    else if (m_scaling != ScaleNone)
        wanted = own.scaled(size(), Qt::KeepAspectRatio);
    const bool isDownOnly = m_scaling == ScaleProportionallyDown || m_scaling > 3;
    if (isDownOnly && wanted.width() > own.width())
        wanted = own;
    QRectF place({}, wanted);
    place.moveCenter(QRectF(rect()).center());
    return place;
}

void ImageView::paintEvent(QPaintEvent *) {
    const QRectF place = imageRect();
    if (place.isEmpty())
        return;
    // Scaled to the pixels of the screen, once for every size.
    const double density = devicePixelRatioF();
    const QSize pixels = (place.size() * density).toSize().expandedTo({1, 1});
    if (m_scaled.size() != pixels) {
        m_scaled = QPixmap::fromImage(
            m_image.size() == pixels
                ? m_image
                : m_image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        m_scaled.setDevicePixelRatio(density);
    }
    // Placed on whole pixels of the screen: between two of them it would be blurred.
    const QPointF corner((place.topLeft() * density).toPoint());
    QPainter painter(this);
    painter.drawPixmap(corner / density, m_scaled);
}

} // namespace velmora
