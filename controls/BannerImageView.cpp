// SPDX-License-Identifier: Apache-2.0
#include "BannerImageView.h"

#include "FocusRing.h"
#include "PictureFile.h"
#include "PicturePlayer.h"

#include <Velmora/Support.h>

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {

namespace {

// Pixels. A file that declares more is not decoded, and none is decoded larger.
constexpr int LargestSide = 4096; // of a decoded frame, in pixels

QSize withinLimits(const QSize &size) {
    return size.boundedTo({LargestSide, LargestSide}).expandedTo({1, 1});
}

} // namespace

BannerImageView::BannerImageView(QWidget *parent) : AdArea(parent) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    // Also emitted when the pointer comes back into the view; wentDown() is not.
    connect(this, &QAbstractButton::pressed, this, [this] {
        if (!m_isDragged)
            Q_EMIT wentDown();
    });
}

BannerImageView::~BannerImageView() {
    Timer::cancel(m_hiddenTimer);
}

void BannerImageView::setImage(const QString &path) {
    if (hasImage() && m_path == path)
        return;
    m_path = path;
    reload();
}

void BannerImageView::rewind() {
    if (m_isAnimation)
        reload();
}

void BannerImageView::reload() {
    const PictureFile file(m_path);
    m_imageSize = file.size();
    m_isAnimation = file.isAnimation();
    m_player.reset();
    if (hasImage()) {
        m_player = std::make_unique<PicturePlayer>(std::make_shared<FrameDecoder>(file),
                                                   [this] { pictureChanged(); });
        m_player->setPlaying(m_isPlaying);
        m_isAwaited = true;
        ignorePresses();
    } else if (!m_path.isEmpty()) {
        LOG(QStringLiteral("banner picture %1 refused: %2").arg(m_path, file.refusal()));
    }
    Q_EMIT imageChanged();
    update();
}

void BannerImageView::setPlaying(bool playing) {
    m_isPlaying = playing;
    if (m_player)
        m_player->setPlaying(playing);
    update();
}

int BannerImageView::decodedFrames() const {
    return m_player ? m_player->frameCount() : 0;
}

double BannerImageView::cornerRadius(double height) {
    return 4.0 > height / 10 ? 2.0 : 4.0;
}

void BannerImageView::pictureChanged() {
    if (std::exchange(m_isAwaited, false)) {
        m_crossFade.start(m_frame);
        ignorePressesFor(SettlingSeconds);
    }
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
    if (m_crossFade.isRunning())
        drawCrossFade(painter);
    else
        drawFrame(painter, m_frame, rect());
    painter.setOpacity(1);
    FocusRing::draw(*this, painter, cornerRadius(height()));
}

// The picture before is opaque until the end, so that what is behind the banner does not shine
// through.
void BannerImageView::drawCrossFade(QPainter &painter) const {
    // The new picture may have another shape, which the view has already.
    const QPixmap &before = m_crossFade.from();
    QRectF place({}, QSizeF(before.size()).scaled(size(), Qt::KeepAspectRatioByExpanding));
    place.moveCenter(QRectF(rect()).center());
    drawFrame(painter, before, place);
    painter.setOpacity(m_crossFade.progress());
    drawFrame(painter, m_frame, rect());
}

void BannerImageView::showEvent(QShowEvent *event) {
    AdArea::showEvent(event);
    Timer::cancel(m_hiddenTimer);
}

void BannerImageView::hideEvent(QHideEvent *event) {
    AdArea::hideEvent(event);
    Timer::cancel(m_hiddenTimer);
    if (hasImage())
        m_hiddenTimer =
            Timer::scheduled(HiddenSeconds, Timer::Kind::OneShot, [this] { dropFrames(); });
}

void BannerImageView::dropFrames() {
    m_hiddenTimer.reset();
    m_crossFade.stop();
    m_frame = {};
    if (m_player)
        m_player->dropFrames();
}

void BannerImageView::mouseMoveEvent(QMouseEvent *event) {
    m_isDragged = true;
    AdArea::mouseMoveEvent(event);
    m_isDragged = false;
}

void BannerImageView::drawFrame(QPainter &painter, const QPixmap &frame,
                                const QRectF &place) const {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double radius = cornerRadius(height());
    const int corner = int(std::ceil(radius));
    const QRect inner = rect().adjusted(corner, 0, -corner, 0);
    const QRegion straight = QRegion(inner) + rect().adjusted(0, corner, 0, -corner);

    // Only the corners are drawn with antialiasing, which is slow; the rest is copied.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setClipRegion(straight);
    painter.drawPixmap(place, frame, QRectF(frame.rect()));

    painter.setClipRegion(QRegion(rect()) - straight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QBrush picture(frame);
    picture.setTransform(
        QTransform::fromTranslate(place.x(), place.y())
            .scale(place.width() / frame.width(), place.height() / frame.height()));
    painter.setBrush(picture);
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace velmora
