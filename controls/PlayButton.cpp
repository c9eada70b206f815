// SPDX-License-Identifier: Apache-2.0
#include "PlayButton.h"

#include "FocusRing.h"

#include <Velmora/Support.h>

#include <QtGui/QPainter>

#include <algorithm>

namespace velmora {

namespace {

// Points. The smaller is the least that WCAG 2.2 (2.5.8) asks of what is pressed.
constexpr int SmallestSide = 24;
constexpr int LargestSide = 32;
constexpr int Margin = 3;
constexpr double SideShare = 0.36; // of the banner's height

} // namespace

PlayButton::PlayButton(QWidget *parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setPlaying(false);
}

void PlayButton::setPlaying(bool playing) {
    if (m_isPlaying == playing)
        return;
    m_isPlaying = playing;
    setAccessibleName(VLMStringFromKey(playing ? QStringLiteral("StopAnimationText")
                                               : QStringLiteral("PlayAnimationText")));
    update();
}

void PlayButton::place(const QSize &banner) {
    const int room = std::min(banner.width(), banner.height());
    const int wanted = std::clamp(int(banner.height() * SideShare), SmallestSide, LargestSide);
    const int side = std::min(wanted, room);
    const int margin = std::clamp((room - side) / 2, 0, Margin);
    setGeometry(margin, banner.height() - margin - side, side, side);
}

void PlayButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF disc = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(QColor(0, 0, 0, isDown() ? 235 : 190));
    painter.drawEllipse(disc);

    // The sign, on a square with sides of 1 around the middle.
    painter.translate(disc.center());
    painter.scale(disc.width(), disc.height());
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    if (m_isPlaying) {
        for (const double x : {-0.17, 0.05})
            painter.drawRect(QRectF(x, -0.2, 0.12, 0.4));
    } else {
        painter.drawPolygon(QPolygonF{{-0.13, -0.22}, {0.24, 0}, {-0.13, 0.22}});
    }
    painter.resetTransform();
    FocusRing::draw(*this, painter, width() / 2.0);
}

} // namespace velmora
