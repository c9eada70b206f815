// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"

#include <Velmora/Support.h>

#include <QtGui/QImageReader>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

// Pixels. A file that declares more is not decoded, and none is decoded larger.
constexpr int LargestSide = 4096;

QSize withinLimits(const QSize &size) {
    return size.boundedTo({LargestSide, LargestSide}).expandedTo({1, 1});
}

// The size that the file declares, read without decoding anything.
QSize usableSize(QImageReader &reader) {
    if (reader.fileName().isEmpty())
        return {};
    const QSize size = reader.canRead() ? reader.size() : QSize();
    const bool usable = size.width() >= 1 && size.height() >= 1 && size.width() <= LargestSide &&
                        size.height() <= LargestSide;
    if (!usable)
        LOG(QStringLiteral("banner picture %1 refused: %2")
                .arg(reader.fileName(), reader.canRead()
                                            ? QStringLiteral("its dimensions are unusable")
                                            : reader.errorString()));
    return usable ? size : QSize();
}

} // namespace

BannerImageView::BannerImageView(QWidget *parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    // Also emitted when the pointer comes back into the view; wentDown() is not.
    connect(this, &QAbstractButton::pressed, this, [this] {
        if (!m_isDragged)
            Q_EMIT wentDown();
    });
}

void BannerImageView::setImage(const QString &path) {
    if (hasImage() && m_path == path)
        return;
    m_path = path;
    // Given the path and not the open file, Qt tries the format of the file's suffix first. To
    // detect it from the content, Qt would load every image plugin.
    QImageReader reader(path);
    m_imageSize = usableSize(reader);
    m_decodedFrames = 0;
    m_drawnSinceFrame = false;
    m_movie.reset();
    m_still = {};
    m_stillSize = {};
    if (hasImage() && reader.supportsAnimation() && reader.imageCount() != 1) {
        m_movie = std::make_unique<QMovie>(path);
        m_movie->setCacheMode(QMovie::CacheNone);
        connect(m_movie.get(), &QMovie::frameChanged, this, &BannerImageView::frameDecoded);
    }
    update();
}

double BannerImageView::cornerRadius(double height) {
    return 4.0 > height / 10 ? 2.0 : 4.0;
}

void BannerImageView::frameDecoded() {
    ++m_decodedFrames;
    // The last frame was never drawn, so the view cannot be seen.
    if (!m_drawnSinceFrame && m_decodedFrames > 1)
        m_movie->setPaused(true);
    m_drawnSinceFrame = false;
    update();
}

void BannerImageView::setNominalHeight(double height) {
    if (!std::isfinite(height))
        return;
    m_nominalHeight = std::min(height, double(LargestSide));
    update();
}

// Frames are scaled while they are decoded, to the pixels of this screen.
QSize BannerImageView::wantedFrameSize() const {
    const double pixels = std::max(m_nominalHeight, double(height())) * devicePixelRatioF();
    const double width = pixels * m_imageSize.width() / m_imageSize.height();
    return withinLimits({int(std::lround(width)), int(std::lround(pixels))});
}

void BannerImageView::fitFrames() {
    const QSize wanted = wantedFrameSize();
    const QSize present = m_movie->scaledSize();
    if (wanted == present)
        return;
    m_movie->setScaledSize(wanted);
    // Decodes a frame of the new size at once: the frame on screen is too small, and the next one
    // may be seconds away, or never come when the animation has ended.
    const bool hasEnded = m_movie->state() == QMovie::NotRunning;
    if (m_decodedFrames > 0 && (hasEnded || wanted.height() > present.height())) {
        m_movie->stop();
        m_movie->start();
    }
}

QPixmap BannerImageView::movieFrame() {
    m_drawnSinceFrame = true;
    fitFrames();
    if (m_decodedFrames == 0)
        m_movie->start();
    else if (m_movie->state() == QMovie::Paused)
        m_movie->setPaused(false);
    return m_movie->currentPixmap();
}

QPixmap BannerImageView::stillFrame() {
    const QSize wanted = withinLimits((QSizeF(size()) * devicePixelRatioF()).toSize());
    if (wanted == m_stillSize)
        return m_still;
    m_stillSize = wanted;
    QImageReader reader(m_path);
    reader.setScaledSize(wanted);
    const QImage image = reader.read();
    if (image.isNull()) {
        LOG(QStringLiteral("banner picture %1 not drawn: %2").arg(m_path, reader.errorString()));
        return m_still;
    }
    ++m_decodedFrames;
    m_still = QPixmap::fromImage(image);
    return m_still;
}

void BannerImageView::paintEvent(QPaintEvent *) {
    if (!hasImage())
        return;
    const QPixmap frame = m_movie ? movieFrame() : stillFrame();
    if (frame.isNull())
        return;
    QPainter painter(this);
    drawFrame(painter, frame);
}

void BannerImageView::mouseMoveEvent(QMouseEvent *event) {
    m_isDragged = true;
    QAbstractButton::mouseMoveEvent(event);
    m_isDragged = false;
}

void BannerImageView::drawFrame(QPainter &painter, const QPixmap &frame) const {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double radius = cornerRadius(height());
    const int corner = int(std::ceil(radius));
    const QRect inner = rect().adjusted(corner, 0, -corner, 0);
    const QRegion straight = QRegion(inner) + rect().adjusted(0, corner, 0, -corner);

    // Only the corners are drawn with antialiasing, which is slow; the rest is copied.
    painter.setClipRegion(straight);
    painter.drawPixmap(rect(), frame);

    painter.setClipRegion(QRegion(rect()) - straight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QBrush picture(frame);
    picture.setTransform(
        QTransform::fromScale(double(width()) / frame.width(), double(height()) / frame.height()));
    painter.setBrush(picture);
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace velmora
