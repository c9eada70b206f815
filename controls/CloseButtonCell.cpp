// SPDX-License-Identifier: Apache-2.0
#include "CloseButtonCell.h"

#include "FocusRing.h"
#include "SystemVersion.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>

namespace velmora {

CloseButtonCell::CloseButtonCell(QWidget *parent) : QAbstractButton(parent) {
    setCursor(Qt::ArrowCursor);
}

QRectF CloseButtonCell::imageFrame(QRectF frame) {
    if (SystemVersion::current().minor < 11)
        frame.translate(0, 1);
    return frame;
}

void CloseButtonCell::setImageDiameter(double diameter) {
    if (m_imageDiameter == diameter)
        return;
    m_imageDiameter = diameter;
    m_face = {};
    update();
}

void CloseButtonCell::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    // Drawn once and kept: over a video the button is redrawn with every frame.
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (m_face.size() != pixels || m_faceKey != icon().cacheKey()) {
        m_faceKey = icon().cacheKey();
        m_face = QPixmap(pixels);
        m_face.setDevicePixelRatio(devicePixelRatioF());
        m_face.fill(Qt::transparent);
        // Leaves room for an image that is drawn a point lower.
        const double room = std::min(width(), height()) - 2.0;
        const double side = m_imageDiameter > 0 ? std::min(room, m_imageDiameter) : room;
        QPainter face(&m_face);
        drawImage({(width() - side) / 2, (height() - side) / 2, side, side}, face);
    }
    painter.setOpacity(isDown() ? 0.75 : underMouse() ? 1.0 : 0.9);
    painter.drawPixmap(0, 0, m_face);
    painter.setOpacity(1);
    FocusRing::draw(*this, painter, width() / 2.0);
}

void CloseButtonCell::drawImage(const QRectF &frame, QPainter &painter) const {
    const QRectF wanted = imageFrame(frame);
    // On whole pixels, and scaled by averaging: QPainter's own scaling drops pixels when an image
    // becomes much smaller, which leaves circles ragged.
    const double density = painter.device()->devicePixelRatioF();
    const QSize pixels = (wanted.size() * density).toSize();
    const QPointF corner = (wanted.topLeft() * density).toPoint();
    const QRectF place(corner / density, QSizeF(pixels) / density);
    // The largest image that the icon has.
    QImage image = icon().pixmap(QSize(256, 256)).toImage();
    image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainterPath circle;
    circle.addEllipse(place.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(circle);
    painter.drawImage(place, image);
}

void CloseButtonCell::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    update();
}

void CloseButtonCell::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace velmora
