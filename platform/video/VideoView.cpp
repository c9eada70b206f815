// SPDX-License-Identifier: Apache-2.0
#include "VideoView.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <cmath>

namespace velmora {

VideoView::VideoView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void VideoView::showFrame(const QImage &frame) {
    const bool isFirst = m_frame.isNull() && !frame.isNull();
    const bool samePlace = frame.size() == m_frame.size();
    m_frame = frame;
    // The black bars stay as they are.
    if (samePlace)
        update(frameRect().toAlignedRect());
    else
        update();
    if (isFirst)
        Q_EMIT started();
}

QSize VideoView::pixelSize() const {
    const double scale = devicePixelRatioF();
    return {int(std::lround(width() * scale)), int(std::lround(height() * scale))};
}

QRect VideoView::framePixels() const {
    const QSize whole = pixelSize();
    const QSize size = m_frame.size().scaled(whole, Qt::KeepAspectRatio);
    return {QPoint((whole.width() - size.width()) / 2, (whole.height() - size.height()) / 2), size};
}

QRectF VideoView::frameRect() const {
    const QRectF pixels(framePixels());
    const double scale = devicePixelRatioF();
    return {pixels.topLeft() / scale, pixels.size() / scale};
}

void VideoView::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    const QRectF place = m_frame.isNull() ? QRectF() : frameRect();
    // Rounded inwards: a pixel that the picture covers partly is painted black before the picture.
    const QPoint first(int(std::ceil(place.left())), int(std::ceil(place.top())));
    const QPoint beyond(int(std::floor(place.right())), int(std::floor(place.bottom())));
    const QRect covered(first, beyond - QPoint(1, 1));
    for (const QRect &bar : event->region() - covered)
        painter.fillRect(bar, Qt::black);
    if (m_frame.isNull())
        return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, framePixels().size() != m_frame.size());
    painter.drawImage(place, m_frame);
}

} // namespace velmora
