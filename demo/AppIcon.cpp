// SPDX-License-Identifier: Apache-2.0
#include "demo/AppIcon.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace demo {

namespace {

constexpr double CornerRadius = 0.225;

// The icon is drawn in a square of side 1.
void paintSail(QPainter &painter) {
    QPainterPath main(QPointF(0.47, 0.16));
    main.quadTo(QPointF(0.74, 0.36), QPointF(0.78, 0.62));
    main.lineTo(0.47, 0.62);
    main.closeSubpath();
    painter.fillPath(main, QColor(0xfd, 0xf6, 0xe8));
    QPainterPath jib(QPointF(0.43, 0.26));
    jib.quadTo(QPointF(0.3, 0.44), QPointF(0.22, 0.62));
    jib.lineTo(0.43, 0.62);
    jib.closeSubpath();
    painter.fillPath(jib, QColor(0xd9, 0x6a, 0x4a));
    QPainterPath hull(QPointF(0.18, 0.66));
    hull.lineTo(0.83, 0.66);
    hull.quadTo(QPointF(0.76, 0.78), QPointF(0.64, 0.79));
    hull.lineTo(0.34, 0.79);
    hull.quadTo(QPointF(0.23, 0.77), QPointF(0.18, 0.66));
    painter.fillPath(hull, QColor(0x3b, 0x2a, 0x26));
}

void paintSwell(QPainter &painter, double y, double depth, const QColor &color) {
    QPainterPath swell(QPointF(0, y));
    swell.cubicTo(QPointF(0.3, y - depth), QPointF(0.42, y + depth), QPointF(0.66, y));
    swell.cubicTo(QPointF(0.8, y - depth * 0.7), QPointF(0.9, y), QPointF(1, y - depth * 0.2));
    swell.lineTo(1, 1);
    swell.lineTo(0, 1);
    painter.fillPath(swell, color);
}

} // namespace

QImage AppIcon::picture(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(side, side);
    QLinearGradient sky(0, 0, 0, 0.75);
    sky.setColorAt(0, QColor(0x1f, 0x4f, 0x5a));
    sky.setColorAt(0.6, QColor(0xd9, 0x8f, 0x62));
    sky.setColorAt(1, QColor(0xf6, 0xc4, 0x7d));
    QPainterPath outline;
    outline.addRoundedRect(QRectF(0, 0, 1, 1), CornerRadius, CornerRadius);
    // A clip path is not antialiased; a path that is filled with a picture is.
    QImage scene(side, side, QImage::Format_ARGB32_Premultiplied);
    scene.fill(Qt::transparent);
    {
        QPainter inner(&scene);
        inner.setRenderHint(QPainter::Antialiasing);
        inner.setPen(Qt::NoPen);
        inner.scale(side, side);
        inner.fillRect(QRectF(0, 0, 1, 1), sky);
        inner.setBrush(QColor(0xfb, 0xdc, 0x9a));
        inner.drawEllipse(QPointF(0.7, 0.46), 0.15, 0.15);
        paintSwell(inner, 0.66, 0.03, QColor(0x3f, 0x7d, 0x86));
        paintSail(inner);
        paintSwell(inner, 0.77, 0.05, QColor(0x25, 0x57, 0x62));
        paintSwell(inner, 0.87, 0.04, QColor(0x18, 0x3c, 0x46));
    }
    QBrush brush(scene);
    brush.setTransform(QTransform::fromScale(1.0 / side, 1.0 / side));
    painter.fillPath(outline, brush);
    return image;
}

QIcon AppIcon::icon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256, 512})
        icon.addPixmap(QPixmap::fromImage(picture(side)));
    return icon;
}

} // namespace demo
