// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"

#include "PictureFile.h"
#include "PicturePlayer.h"

#include <Velmora/Support.h>

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

// Pixels. A file that declares more is not decoded, and none is decoded larger.
constexpr int LargestSide = 4096; // of a decoded frame, in pixels

QSize withinLimits(const QSize &size) {
    return size.boundedTo({LargestSide, LargestSide}).expandedTo({1, 1});
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

BannerImageView::~BannerImageView() = default;

void BannerImageView::setImage(const QString &path) {
    if (hasImage() && m_path == path)
        return;
    m_path = path;
    const PictureFile file(path);
    m_imageSize = file.size();
    m_isAnimation = file.isAnimation();
    m_player.reset();
    if (hasImage()) {
        m_player = std::make_unique<PicturePlayer>(std::make_shared<FrameDecoder>(file),
                                                   [this] { pictureChanged(); });
    } else if (!path.isEmpty()) {
        LOG(QStringLiteral("banner picture %1 refused: %2").arg(path, file.refusal()));
    }
    update();
}

int BannerImageView::decodedFrames() const {
    return m_player ? m_player->frameCount() : 0;
}

double BannerImageView::cornerRadius(double height) {
    return 4.0 > height / 10 ? 2.0 : 4.0;
}

void BannerImageView::pictureChanged() {
    m_frame = m_player->frame();
    if (m_player->hasFailed()) {
        m_imageSize = {};
        Q_EMIT failed();
    }
    update();
}

void BannerImageView::setNominalHeight(double height) {
    if (!std::isfinite(height))
        return;
    m_nominalHeight = std::min(height, double(LargestSide));
    update();
}

// In the pixels of this screen.
QSize BannerImageView::wantedFrameSize() const {
    if (!m_isAnimation)
        return withinLimits((QSizeF(size()) * devicePixelRatioF()).toSize());
    const double pixels = std::max(m_nominalHeight, double(height())) * devicePixelRatioF();
    const double width = pixels * m_imageSize.width() / m_imageSize.height();
    return withinLimits({int(std::lround(width)), int(std::lround(pixels))});
}

void BannerImageView::paintEvent(QPaintEvent *) {
    if (!hasImage())
        return;
    m_player->drawn(wantedFrameSize());
    if (m_frame.isNull())
        return;
    QPainter painter(this);
    drawFrame(painter, m_frame);
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
