// SPDX-License-Identifier: Apache-2.0
#include "demo/Scenery.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>

namespace demo {

namespace {

constexpr double WaterLine = 0.74;

double wave(double x, double steepness) {
    const double round = std::sin(x);
    const double jagged = std::asin(round) * 2 / M_PI;
    return round * (1 - steepness) + jagged * steepness;
}

void paintSailboat(QPainter &painter, QPointF at, double u) {
    painter.setBrush(QColor(0x3b, 0x2a, 0x26));
    painter.drawPolygon(QPolygonF{at + QPointF(-9, 0) * u, at + QPointF(9, 0) * u,
                                  at + QPointF(6, 3.4) * u, at + QPointF(-6.5, 3.4) * u});
    painter.setBrush(QColor(0xfd, 0xf6, 0xe8));
    painter.drawPolygon(
        QPolygonF{at + QPointF(0.4, -17) * u, at + QPointF(0.4, -1) * u, at + QPointF(9, -1) * u});
    painter.setBrush(QColor(0xd9, 0x6a, 0x4a));
    painter.drawPolygon(QPolygonF{at + QPointF(-0.6, -14) * u, at + QPointF(-0.6, -1) * u,
                                  at + QPointF(-6, -1) * u});
}

void paintLighthouse(QPainter &painter, QPointF at, double u) {
    QLinearGradient beam(at, at + QPointF(-120, 0) * u);
    beam.setColorAt(0, QColor(255, 240, 190, 90));
    beam.setColorAt(1, QColor(255, 240, 190, 0));
    painter.setBrush(beam);
    painter.drawPolygon(QPolygonF{at + QPointF(0, -27) * u, at + QPointF(-120, -48) * u,
                                  at + QPointF(-120, -22) * u});
    painter.setBrush(QColor(0xf7, 0xf1, 0xe6));
    painter.drawPolygon(QPolygonF{at + QPointF(-4.4, 1) * u, at + QPointF(4.4, 1) * u,
                                  at + QPointF(3, -24) * u, at + QPointF(-3, -24) * u});
    painter.setBrush(QColor(0xb6, 0x4a, 0x2f));
    for (double y : {-6.0, -15.0})
        painter.drawRect(QRectF(at.x() - 3.7 * u, at.y() + y * u, 7.4 * u, 3.6 * u));
    painter.setBrush(QColor(0x2a, 0x2e, 0x35));
    painter.drawRect(QRectF(at.x() - 3.8 * u, at.y() - 25 * u, 7.6 * u, 1.4 * u));
    painter.drawPolygon(QPolygonF{at + QPointF(-3.4, -29.4) * u, at + QPointF(3.4, -29.4) * u,
                                  at + QPointF(0, -33) * u});
    painter.setBrush(QColor(0xff, 0xdf, 0x8a));
    painter.drawRect(QRectF(at.x() - 2.2 * u, at.y() - 29.4 * u, 4.4 * u, 4.4 * u));
}

void paintPine(QPainter &painter, QPointF at, double u, const QColor &color) {
    painter.setBrush(color);
    for (int tier = 0; tier < 3; ++tier) {
        const double half = (6.4 - tier * 1.6) * u;
        const double foot = at.y() - (2 + tier * 5.2) * u;
        painter.drawPolygon(
            QPolygonF{{at.x() - half, foot}, {at.x() + half, foot}, {at.x(), foot - 9 * u}});
    }
    painter.drawRect(QRectF(at.x() - 0.8 * u, at.y() - 2.2 * u, 1.6 * u, 3 * u));
}

void paintLantern(QPainter &painter, QPointF at, double u) {
    QRadialGradient glow(at, 16 * u);
    glow.setColorAt(0, QColor(255, 214, 140, 150));
    glow.setColorAt(1, QColor(255, 214, 140, 0));
    painter.setBrush(glow);
    painter.drawEllipse(at, 16 * u, 16 * u);
    painter.setBrush(QColor(0xff, 0xc8, 0x6b));
    painter.drawRoundedRect(QRectF(at.x() - 3 * u, at.y() - 4 * u, 6 * u, 8 * u), 2 * u, 2 * u);
    painter.setBrush(QColor(0x5a, 0x22, 0x22));
    painter.drawRect(QRectF(at.x() - 2 * u, at.y() - 5 * u, 4 * u, 1.3 * u));
    painter.drawRect(QRectF(at.x() - 2 * u, at.y() + 3.7 * u, 4 * u, 1.3 * u));
}

void paintCamel(QPainter &painter, QPointF at, double u) {
    const QColor color(0x3a, 0x22, 0x1e);
    QPainterPath body;
    body.moveTo(at + QPointF(-7, -6) * u);
    body.quadTo(at + QPointF(-2, -15) * u, at + QPointF(4, -7) * u);
    body.quadTo(at + QPointF(7, -6) * u, at + QPointF(8.4, -12) * u);
    body.lineTo(at + QPointF(11.6, -12.4) * u);
    body.lineTo(at + QPointF(11.4, -10.6) * u);
    body.lineTo(at + QPointF(9.8, -10.4) * u);
    body.quadTo(at + QPointF(9, -3) * u, at + QPointF(4, -3.6) * u);
    body.lineTo(at + QPointF(-6, -3.6) * u);
    body.closeSubpath();
    painter.fillPath(body, color);
    for (double x : {-6.2, -4.2, 2.2, 4.2})
        painter.fillRect(QRectF(at.x() + x * u, at.y() - 5 * u, 1 * u, 6 * u), color);
}

void paintChurch(QPainter &painter, QPointF at, double u) {
    painter.setBrush(QColor(0x3c, 0x5a, 0x4e));
    painter.drawEllipse(at + QPointF(0, 4) * u, 30 * u, 6.5 * u);
    painter.setBrush(QColor(0xfa, 0xf4, 0xe8));
    painter.drawRect(QRectF(at.x() - 3 * u, at.y() - 8 * u, 14 * u, 9 * u));
    painter.drawRect(QRectF(at.x() - 8.4 * u, at.y() - 16 * u, 5.6 * u, 17 * u));
    painter.setBrush(QColor(0x9a, 0x44, 0x30));
    painter.drawPolygon(QPolygonF{at + QPointF(-4, -8) * u, at + QPointF(12, -8) * u,
                                  at + QPointF(8.6, -12.6) * u, at + QPointF(-2.8, -12.6) * u});
    painter.drawPolygon(QPolygonF{at + QPointF(-9, -16) * u, at + QPointF(-2.2, -16) * u,
                                  at + QPointF(-5.6, -26) * u});
    for (double x : {-16.0, -20.5, 16.5, 21.0})
        paintPine(painter, at + QPointF(x, 1) * u, 0.62 * u, QColor(0x2c, 0x48, 0x3f));
}

} // namespace

void Scenery::paint(QPainter &painter, const QRectF &frame) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintSky(painter, frame);
    for (int i = 0; i < ridges.size(); ++i)
        paintRidge(painter, frame, ridges[i], i);
    if (water.isValid())
        paintWater(painter, frame);
    paintMotif(painter, frame);
    painter.restore();
}

QImage Scenery::picture(const QSize &size) const {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    paint(painter, QRectF(QPointF(), size));
    return image;
}

void Scenery::paintSky(QPainter &painter, const QRectF &frame) const {
    QLinearGradient sky(frame.topLeft(), frame.bottomLeft());
    sky.setColorAt(0, skyTop);
    sky.setColorAt(0.8, skyBottom);
    painter.fillRect(frame, sky);
    const QPointF centre(frame.left() + sunX * frame.width(), frame.top() + sunY * frame.height());
    const double radius = frame.height() * 0.1;
    QColor halo = sun;
    for (int ring = 3; ring >= 1; --ring) {
        halo.setAlpha(18 + 6 * (3 - ring));
        painter.setBrush(halo);
        painter.drawEllipse(centre, radius * (1 + ring * 0.55), radius * (1 + ring * 0.55));
    }
    painter.setBrush(sun);
    painter.drawEllipse(centre, radius, radius);
}

double Scenery::ridgeLine(const Ridge &ridge, int index, double x) const {
    const double phase = seed * 1.7 + index * 2.3;
    const double rough = wave(x * 5.1 + phase, ridge.steepness) * 0.58 +
                         wave(x * 11.3 + phase * 2.1, ridge.steepness) * 0.29 +
                         wave(x * 23.9 + phase * 0.7, ridge.steepness) * 0.13 * ridge.steepness;
    return 1 - ridge.height - ridge.amplitude * rough;
}

void Scenery::paintRidge(QPainter &painter, const QRectF &frame, const Ridge &ridge,
                         int index) const {
    QPainterPath path(frame.bottomLeft());
    const int steps = std::max(24, int(frame.width() / 3));
    for (int i = 0; i <= steps; ++i) {
        const double x = double(i) / steps;
        // A wider picture shows more hills, not the same hills stretched.
        const double along = x * frame.width() / (frame.height() * 2.4);
        path.lineTo(frame.left() + x * frame.width(),
                    frame.top() + ridgeLine(ridge, index, along) * frame.height());
    }
    path.lineTo(frame.bottomRight());
    painter.fillPath(path, ridge.color);
}

void Scenery::paintWater(QPainter &painter, const QRectF &frame) const {
    const double top = frame.top() + WaterLine * frame.height();
    const QRectF surface(frame.left(), top, frame.width(), frame.bottom() - top);
    QLinearGradient depth(surface.topLeft(), surface.bottomLeft());
    depth.setColorAt(0, water.lighter(118));
    depth.setColorAt(1, water);
    painter.fillRect(surface, depth);
    QColor glint = sun;
    const double centre = frame.left() + sunX * frame.width();
    for (int i = 0; i < 9; ++i) {
        const double t = (i + 0.6) / 9;
        glint.setAlpha(int(150 * (1 - t)) + 20);
        const double width = frame.height() * (0.09 + 0.3 * t * (i % 2 ? 0.6 : 1));
        const double shift = frame.height() * 0.03 * (i % 3 - 1);
        painter.setBrush(glint);
        painter.drawRoundedRect(QRectF(centre - width / 2 + shift, top + t * surface.height(),
                                       width, frame.height() * 0.008),
                                1, 1);
    }
}

void Scenery::paintMotif(QPainter &painter, const QRectF &frame) const {
    const double u = frame.height() / 120;
    const auto at = [&](double x, double y) {
        return QPointF(frame.left() + x * frame.width(), frame.top() + y * frame.height());
    };
    switch (motif) {
    case Motif::Sailboat:
        paintSailboat(painter, at(0.34, 0.8), u * 1.3);
        break;
    case Motif::Lighthouse:
        paintLighthouse(painter, at(0.5, 0.66), u * 1.15);
        break;
    case Motif::Pines:
        for (int i = 0; i < 13; ++i) {
            const double x = std::fmod(0.05 + i * 0.391 + seed * 0.07, 1.0);
            paintPine(painter, at(x, 1.0 + 0.02 * (i % 3)), u * (1.2 + 0.35 * (i % 4)),
                      ridges.last().color.darker(118 + 8 * (i % 3)));
        }
        break;
    case Motif::Lanterns: {
        QPolygonF string;
        for (int i = -1; i < 7; ++i)
            string << at(0.08 + i * 0.17, 0.7 + 0.07 * (((i + 3) * 2) % 3));
        painter.setPen(QPen(QColor(0x1d, 0x15, 0x28), u * 0.6));
        painter.drawPolyline(string.translated(0, -5 * u));
        painter.setPen(Qt::NoPen);
        for (const QPointF &place : std::as_const(string))
            paintLantern(painter, place, u * 1.25);
        break;
    }
    case Motif::Dunes:
        for (int i = 0; i < 3; ++i)
            paintCamel(painter, at(0.24, 0.78) + QPointF(i * 27 * u, i * 1.2 * u), u * 0.95);
        break;
    case Motif::Church:
        paintChurch(painter, at(0.46, 0.78), u * 1.1);
        break;
    }
}

} // namespace demo
