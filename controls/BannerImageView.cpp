#include "controls/BannerImageView.h"

#include <Velmora/Support.h>

#include <QtGui/QImageReader>
#include <QtGui/QPainter>

namespace velmora {

namespace {

constexpr int LargestSide = 4096;

// The size that the file declares, read without decoding anything.
QSize usableSize(const QString &path) {
    if (path.isEmpty())
        return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.canRead() ? reader.size() : QSize();
    const bool usable = size.width() >= 1 && size.height() >= 1 && size.width() <= LargestSide &&
                        size.height() <= LargestSide;
    if (!usable)
        LOG(QStringLiteral("banner picture %1 refused: %2")
                .arg(path, reader.canRead() ? QStringLiteral("its dimensions are absurd")
                                            : reader.errorString()));
    return usable ? size : QSize();
}

} // namespace

BannerImageView::BannerImageView(QWidget *parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
}

BannerImageView::~BannerImageView() = default;

void BannerImageView::setImage(const QString &path) {
    m_imageSize = usableSize(path);
    m_decodedFrames = 0;
    m_drawnSinceFrame = false;
    m_movie.reset();
    if (hasImage()) {
        m_movie = std::make_unique<QMovie>(path);
        m_movie->setCacheMode(QMovie::CacheNone);
        fitFrames();
        connect(m_movie.get(), &QMovie::frameChanged, this, &BannerImageView::frameDecoded);
    }
    update();
}

double BannerImageView::cornerRadius(double height) {
    return 4.0 > height / 10 ? 2.0 : 4.0;
}

void BannerImageView::frameDecoded() {
    ++m_decodedFrames;
    // Nobody drew the last frame, so nobody sees this one.
    if (!m_drawnSinceFrame && m_decodedFrames > 1)
        m_movie->setPaused(true);
    m_drawnSinceFrame = false;
    update();
}

void BannerImageView::fitFrames() {
    if (!m_movie || size().isEmpty())
        return;
    // Frames are scaled while they are decoded, to the very pixels of the screen.
    m_movie->setScaledSize((QSizeF(size()) * devicePixelRatioF()).toSize());
}

void BannerImageView::resizeEvent(QResizeEvent *event) {
    QAbstractButton::resizeEvent(event);
    fitFrames();
}

void BannerImageView::paintEvent(QPaintEvent *) {
    if (!m_movie)
        return;
    m_drawnSinceFrame = true;
    if (m_movie->state() == QMovie::NotRunning && m_decodedFrames == 0) {
        fitFrames();
        m_movie->start();
    } else if (m_movie->state() == QMovie::Paused) {
        m_movie->setPaused(false);
    }
    const QPixmap frame = m_movie->currentPixmap();
    if (frame.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    QBrush picture(frame);
    picture.setTransform(QTransform::fromScale(double(width()) / frame.width(),
                                               double(height()) / frame.height()));
    painter.setBrush(picture);
    const double radius = cornerRadius(height());
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace velmora
