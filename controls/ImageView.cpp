// SPDX-License-Identifier: Apache-2.0
#include "ImageView.h"

#include "Animator.h"
#include "PictureFile.h"
#include "PicturePlayer.h"

#include <Velmora/Support.h>

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <utility>

namespace velmora {

namespace {
// Pixels of an image that is scaled at once, in a millisecond or two.
constexpr qint64 MostPixelsAtOnce = 256 * 256;
} // namespace

ImageView::ImageView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

ImageView::~ImageView() = default;

void ImageView::setImage(const QImage &image) {
    // Qt keeps a bit a pixel when it scales such an image, and loses its colours.
    m_image =
        image.depth() == 1 ? image.convertToFormat(QImage::Format_ARGB32_Premultiplied) : image;
    m_imageSize = image.deviceIndependentSize();
    m_scaled = {};
    m_player.reset();
    if (qint64(image.width()) * image.height() > MostPixelsAtOnce)
        play(std::make_shared<FrameDecoder>(m_image));
    update();
}

void ImageView::setImageFile(const QString &path) {
    const PictureFile file(path);
    if (!file.refusal().isEmpty())
        LOG(QStringLiteral("picture %1 refused: %2").arg(path, file.refusal()));
    setImage({});
    m_imageSize = file.size();
    if (hasImage())
        play(std::make_shared<FrameDecoder>(file));
}

void ImageView::play(std::shared_ptr<FrameDecoder> decoder) {
    m_player = std::make_unique<PicturePlayer>(std::move(decoder), [this] {
        update();
        Animator::contentChanged(this);
    });
}

void ImageView::setImageScaling(unsigned scaling) {
    m_scaling = scaling;
    update();
}

QRectF ImageView::imageRect() const {
    if (!hasImage())
        return {};
    QSizeF wanted = m_imageSize;
    if (m_scaling == ScaleAxesIndependently)
        wanted = size();
    else if (m_scaling != ScaleNone)
        wanted = m_imageSize.scaled(size(), Qt::KeepAspectRatio);
    const bool isDownOnly = m_scaling == ScaleProportionallyDown || m_scaling > 3;
    if (isDownOnly && wanted.width() > m_imageSize.width())
        wanted = m_imageSize;
    QRectF place({}, wanted);
    place.moveCenter(QRectF(rect()).center());
    return place;
}

// The picture in this size; for a moment in another one, or null, until it has been scaled.
QPixmap ImageView::scaledTo(const QSize &pixels) {
    if (m_player) {
        m_player->drawn(pixels);
        return m_player->frame();
    }
    if (m_scaled.size() != pixels)
        m_scaled = QPixmap::fromImage(
            m_image.size() == pixels
                ? m_image
                : m_image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return m_scaled;
}

void ImageView::paintEvent(QPaintEvent *event) {
    if (m_letterboxColor.isValid())
        QPainter(this).fillRect(event->rect(), m_letterboxColor);
    const QRectF place = imageRect();
    if (place.isEmpty())
        return;
    const double density = devicePixelRatioF();
    const QSize pixels = (place.size() * density).toSize().expandedTo({1, 1});
    const QPixmap picture = scaledTo(pixels);
    if (picture.isNull())
        return;
    // Placed on whole pixels of the screen: between two of them it would be blurred.
    const QPointF corner(QPointF((place.topLeft() * density).toPoint()) / density);
    QPainter painter(this);
    painter.drawPixmap(QRectF(corner, QSizeF(pixels) / density), picture, QRectF(picture.rect()));
}

} // namespace velmora
