#include "controls/CloseButtonCell.h"

#include "controls/FocusRing.h"
#include "platform/SystemVersion.h"

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

void CloseButtonCell::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    // Room for the lowered image, so that the circle is never cut by the edge.
    const double side = std::min(width(), height()) - 2.0;
    const QRectF square((width() - side) / 2, (height() - side) / 2, side, side);
    painter.setOpacity(isDown() ? 0.75 : underMouse() ? 1.0 : 0.9);
    drawImage(square, painter);
    painter.setOpacity(1);
    FocusRing::draw(*this, painter, width() / 2.0);
}

void CloseButtonCell::drawImage(const QRectF &frame, QPainter &painter) const {
    const QRectF place = imageFrame(frame);
    QPainterPath circle;
    circle.addEllipse(place.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.save();
    painter.setClipPath(circle);
    const QPixmap image = icon().pixmap(place.size().toSize(), devicePixelRatioF());
    painter.drawPixmap(place, image, QRectF(image.rect()));
    painter.restore();
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
