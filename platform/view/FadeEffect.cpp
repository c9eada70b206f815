// SPDX-License-Identifier: Apache-2.0
#include "FadeEffect.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

// Qt leaves holes in the window's image where it composes them.
bool hasTextures(const QWidget *window) {
    const auto widgets = window->findChildren<QWidget *>();
    return std::any_of(widgets.begin(), widgets.end(), [](const QWidget *widget) {
        return widget->isVisible() &&
               (widget->inherits("QOpenGLWidget") || widget->inherits("QQuickWidget"));
    });
}

bool hasPixelsOfRgb32(QImage::Format format) {
    return format == QImage::Format_ARGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

FadeEffect::FadeEffect(const QWidget *view) : m_view(view) {}

void FadeEffect::setOpacity(double opacity) {
    m_opacity = opacity;
    update();
}

void FadeEffect::redraw() {
    m_size = {};
    m_backdrop = {}; // null until it has rendered the view
    update();
}

bool FadeEffect::coversWindow() const {
    const QSize whole = m_view->window()->size();
    return m_view->width() * 2 > whole.width() && m_view->height() * 2 > whole.height();
}

void FadeEffect::draw(QPainter *painter) {
    if (m_opacity <= 0)
        return;
    // A small view is cheap to render, and may just be getting what it shows: the picture of a
    // banner is decoded while it fades in.
    const bool isLarge = coversWindow();
    if (!isLarge || m_size != m_view->size() ||
        m_picture.devicePixelRatio() != painter->device()->devicePixelRatio()) {
        m_size = m_view->size();
        m_picture = sourcePixmap(Qt::LogicalCoordinates, &m_offset, QGraphicsEffect::NoPad);
        m_backdrop = {};
    }
    if (isLarge && m_backdrop.isNull())
        takeBackdrop(*painter);
    painter->setOpacity(m_opacity);
    painter->drawPixmap(m_offset, m_picture);
}

void FadeEffect::takeBackdrop(const QPainter &painter) {
    if (painter.device()->devType() != QInternal::Image)
        return;
    const auto &drawn = *static_cast<const QImage *>(painter.device());
    const double density = drawn.devicePixelRatio();
    // A picture of a part of the window, as QWidget::grab() makes it, has other places.
    const QWidget *window = m_view->window();
    if (hasTextures(window) || drawn.size() != (QSizeF(window->size()) * density).toSize())
        return;
    const QRectF frame(m_view->mapTo(window, QPoint()), m_view->size());
    const QRect pixels = QRectF(frame.topLeft() * density, frame.size() * density).toRect();
    // Beside what is painted anew, the image still has the view itself.
    const QRegion painted = painter.paintEngine()->systemClip();
    if (!painted.isEmpty() && !QRegion(pixels & drawn.rect()).subtracted(painted).isEmpty())
        return;
    QImage image = drawn.copy(pixels);
    if (hasPixelsOfRgb32(image.format()))
        image.reinterpretAsFormat(QImage::Format_RGB32); // draws faster
    m_backdrop = QPixmap::fromImage(std::move(image));
    m_backdrop.setDevicePixelRatio(density);
}

} // namespace velmora
