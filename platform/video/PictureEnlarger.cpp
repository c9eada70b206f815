// SPDX-License-Identifier: Apache-2.0
#include "PictureEnlarger.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace velmora {

namespace {

// In pixels: 1920x1080. Painting scales to this size within some four milliseconds.
constexpr qint64 MostForPainting = 1920 * 1080;

} // namespace

QImage PictureEnlarger::enlarged(const QImage &picture, const QSize &place) {
    const QSize size = picture.size().scaled(place, Qt::KeepAspectRatio);
    if (size.width() <= picture.width() || qint64(size.width()) * size.height() <= MostForPainting)
        return picture;
    QImage &image = freeImage(size);
    if (image.isNull())
        return picture;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(image.rect(), picture);
    painter.end();
    return image;
}

QImage &PictureEnlarger::freeImage(const QSize &size) {
    // The others are being shown. When all are, the new picture takes the place of the first one,
    // which whoever shows it keeps.
    auto free = std::find_if(m_images.begin(), m_images.end(), [](const QImage &image) {
        return image.isNull() || image.isDetached();
    });
    if (free == m_images.end())
        free = m_images.begin();
    if (free->size() != size || !free->isDetached())
        *free = QImage(size, QImage::Format_RGB32);
    return *free;
}

} // namespace velmora
