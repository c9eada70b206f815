// SPDX-License-Identifier: Apache-2.0
#include "FadeEffect.h"

#include <QtCore/QPointer>
#include <QtGui/QBackingStore>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <cstring>
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
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
           format == QImage::Format_ARGB32_Premultiplied;
}

void copyPixels(const QImage &from, const QRect &part, QImage &to) {
    for (int y = 0; y < part.height(); ++y) {
        const uchar *line = from.constScanLine(part.y() + y) + qsizetype(part.x()) * 4;
        std::memcpy(to.scanLine(y), line, size_t(part.width()) * 4);
    }
}

} // namespace

FadeEffect::FadeEffect(QWidget *view, FadeImages &images) : m_view(view), m_images(images) {}

void FadeEffect::waitForImages(bool showsView) {
    m_waitsForImages = true;
    m_showsView = showsView;
}

void FadeEffect::setOpacity(double opacity) {
    m_opacity = opacity;
    update();
}

void FadeEffect::redraw() {
    m_size = {};
    m_images.put(std::exchange(m_backdrop, {})); // null until it has rendered the view
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
    const double density = painter->device()->devicePixelRatio();
    if (!isLarge || m_size != m_view->size() || m_picture.devicePixelRatio() != density) {
        const QSize pixels = m_view->size() * density;
        if (isLarge && isToWait(*painter->device(), pixels)) {
            if (m_showsView)
                drawSource(painter);
            return;
        }
        render(pixels, density);
    }
    if (m_picture.isNull()) { // without memory there is no fade
        drawSource(painter);
        return;
    }
    if (isLarge && m_backdrop.isNull())
        takeBackdrop(*painter);
    painter->setOpacity(m_opacity);
    painter->drawImage(0, 0, m_picture);
}

bool FadeEffect::isToWait(const QPaintDevice &device, QSize pixels) {
    // Another device than the window's, as of QWidget::grab(), gets the view at once.
    QBackingStore *shown = m_view->backingStore();
    if (!m_waitsForImages || !m_picture.isNull() || !shown || shown->paintDevice() != &device)
        return false;
    return !m_images.prepare(pixels, [effect = QPointer(this)] {
        if (effect)
            effect->update();
    });
}

void FadeEffect::render(QSize pixels, double density) {
    m_size = m_view->size();
    m_images.put(std::exchange(m_backdrop, {}));
    if (m_picture.size() == pixels && m_picture.isDetached())
        m_picture.fill(Qt::transparent);
    else
        m_picture = m_images.take(pixels);
    if (m_picture.isNull())
        return;
    m_picture.setDevicePixelRatio(density);
    m_view->render(&m_picture, QPoint(), QRegion(), QWidget::DrawChildren);
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
    if (hasPixelsOfRgb32(drawn.format()) && drawn.rect().contains(pixels)) {
        m_backdrop = m_images.takeUncleared(pixels.size());
        if (m_backdrop.isNull())
            return;
        copyPixels(drawn, pixels, m_backdrop);
        m_backdrop.reinterpretAsFormat(QImage::Format_RGB32); // draws faster
    } else {
        m_backdrop = drawn.copy(pixels);
    }
    m_backdrop.setDevicePixelRatio(density);
}

} // namespace velmora
