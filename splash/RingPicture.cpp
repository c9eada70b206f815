// SPDX-License-Identifier: Apache-2.0
#include "RingPicture.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

double radiusInside(double radius, double width) {
    return std::max(0.0, std::min(radius, radius - width));
}

QRectF circle(QPointF center, double radius) {
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
}

// Part of a ring, clockwise from an angle; degrees, counter-clockwise from three o'clock.
QPainterPath sector(QPointF center, double outer, double inner, double from, double sweep) {
    QPainterPath path;
    if (outer <= 0 || sweep <= 0)
        return path;
    path.arcMoveTo(circle(center, outer), from);
    path.arcTo(circle(center, outer), from, -sweep);
    if (inner > 0)
        path.arcTo(circle(center, inner), from - sweep, sweep);
    else
        path.lineTo(center);
    path.closeSubpath();
    return path;
}

void fill(QPainter &painter, const QPainterPath &path, const QColor &color) {
    if (color.isValid())
        painter.fillPath(path, color);
}

// What any ring has drawn last. Never destroyed, because another thread may be in exit().
RingPicture &lastDrawn() {
    static auto &picture = *new RingPicture;
    return picture;
}

QSize pixels(const RingPicture::Look &look) {
    return (QSizeF(look.size) * look.density).toSize();
}

} // namespace

QRect RingPicture::changeTo(const Look &look, double sweep) const {
    const QRectF whole({}, look.size);
    if (m_pixmap.isNull() || look != m_look)
        return whole.toRect();
    if (sweep == m_sweep)
        return {};
    const double radius = look.diameter() / 2;
    const double width = std::max(look.remainingWidth, look.elapsedWidth);
    const auto [from, to] = std::minmax(sweep, m_sweep);
    // Its ends are smooth, which takes a pixel more.
    return sector(whole.center(), radius, radiusInside(radius, width), 90 - from, to - from)
        .boundingRect()
        .adjusted(-1.5, -1.5, 1.5, 1.5)
        .intersected(whole)
        .toAlignedRect();
}

bool RingPicture::fits(const Look &look) const {
    return m_pixmap.size() == pixels(look);
}

QRect RingPicture::draw(const Look &look, double sweep) {
    const QRect changed = changeTo(look, sweep);
    if (changed.isEmpty())
        return changed;
    // In several windows the rings mostly show the same.
    RingPicture &last = lastDrawn();
    if (last.m_look == look && last.m_sweep == sweep) {
        *this = last;
        return changed;
    }
    drawChange(look, sweep, changed);
    last = *this;
    return changed;
}

void RingPicture::drawChange(const Look &look, double sweep, const QRect &changed) {
    if (!fits(look)) {
        m_pixmap = QPixmap(pixels(look));
        m_pixmap.fill(Qt::transparent); // which also gives it an alpha channel
    }
    m_look = look;
    m_sweep = sweep;
    // A painter counts in the pixmap's pixels only when that has no density.
    m_pixmap.setDevicePixelRatio(1);
    {
        QPainter painter(&m_pixmap);
        const QRect area =
            QRectF(QPointF(changed.topLeft()) * look.density, QSizeF(changed.size()) * look.density)
                .toAlignedRect();
        painter.setClipRect(area);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(area, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.scale(look.density, look.density);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPointF center = QRectF({}, look.size).center();
        const double radius = look.diameter() / 2;
        QPainterPath disc;
        disc.addEllipse(center, radius, radius);
        fill(painter, disc, look.disc);
        fill(painter,
             sector(center, radius, radiusInside(radius, look.remainingWidth), 90 - sweep,
                    360 - sweep),
             look.remaining);
        fill(painter, sector(center, radius, radiusInside(radius, look.elapsedWidth), 90, sweep),
             look.elapsed);
    }
    m_pixmap.setDevicePixelRatio(look.density);
}

} // namespace velmora
