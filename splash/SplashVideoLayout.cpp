// SPDX-License-Identifier: Apache-2.0
#include "SplashVideoLayout.h"

#include "Animator.h"
#include "SplashElementPlacing.h"
#include "SplashTextScale.h"

namespace velmora {

namespace {

using Placing = SplashElementPlacing;

bool isHidden(const QWidget *element) {
    return !element || Animator::isHidden(element);
}

int controlSide(const SplashLengths &lengths) {
    return lengths.scaled(36, 28, 48);
}

QRect ringFrame(const QSize &window, const SplashLengths &lengths) {
    const int side = lengths.cornerRing();
    return {window.width() - lengths.inset() - side, lengths.inset(), side, side};
}

} // namespace

void SplashVideoLayout::apply(const QSize &window) {
    SplashLengths lengths(window);
    for (const double scale : SplashTextScale::fromApplicationFont()) {
        lengths = lengths.withTextScale(scale);
        setTextSizes(lengths);
        if (fits(window, lengths))
            break;
    }
    placeTopCorner(window, lengths);
    placeBottomCorners(window, lengths);
}

void SplashVideoLayout::setTextSizes(const SplashLengths &lengths) {
    if (m_outlets.adMark)
        m_outlets.adMark->setTextSize(lengths.scaledText(13, 11, 17));
    Placing::setLetters(m_outlets.removeAdsImageButton, lengths.scaledText(13, 12, 17));
}

bool SplashVideoLayout::fits(const QSize &window, const SplashLengths &lengths) const {
    const QRect mark = markFrame(ringFrame(window, lengths), lengths);
    return mark.left() >= lengths.inset() &&
           (!m_outlets.removeAdsImageButton || !removeAdsFrame(window, lengths).isEmpty());
}

void SplashVideoLayout::placeTopCorner(const QSize &window, const SplashLengths &lengths) {
    const QRect ring = ringFrame(window, lengths);
    Placing::place(m_outlets.videoProgressView, ring);
    Placing::placeCountdown(m_outlets.timeVideoLabel, ring, m_outlets.spashTimerConstraint1);
    if (CloseButtonCell *close = m_outlets.closeButton) {
        Placing::place(close, ring);
        close->setImageDiameter(controlSide(lengths));
    }
    Placing::place(m_outlets.adMark, markFrame(ring, lengths));
}

QRect SplashVideoLayout::markFrame(const QRect &ring, const SplashLengths &lengths) const {
    if (!m_outlets.adMark)
        return ring;
    QRect frame({}, m_outlets.adMark->sizeHint());
    // On the start screen, which has neither ring nor close button there, it lies in the corner.
    if (isHidden(m_outlets.videoProgressView) && isHidden(m_outlets.closeButton)) {
        frame.moveTopRight(ring.topRight());
    } else {
        frame.moveCenter(ring.center());
        frame.moveRight(ring.left() - lengths.scaled(10, 6, 14));
    }
    return frame;
}

void SplashVideoLayout::placeBottomCorners(const QSize &window, const SplashLengths &lengths) {
    const int side = controlSide(lengths);
    Placing::place(m_outlets.soundButton,
                   {lengths.inset(), window.height() - lengths.inset() - side, side, side});
    Placing::place(m_outlets.removeAdsImageButton.data(), removeAdsFrame(window, lengths));
}

QRect SplashVideoLayout::removeAdsFrame(const QSize &window, const SplashLengths &lengths) const {
    const RemoveAdsButton *button = m_outlets.removeAdsImageButton;
    if (!button)
        return {};
    const int letters = lengths.scaledText(13, 12, 17);
    const qsizetype lines = button->text().count(QLatin1Char('\n')) + 1;
    const QSize size(button->sizeHint().width(), int(double(lines * letters) * 1.3) + letters);
    const int inset = lengths.inset();
    const QRect frame(
        {window.width() - inset - size.width(), window.height() - inset - size.height()}, size);
    const bool hasRoom = frame.left() >= 2 * inset + controlSide(lengths) &&
                         frame.top() >= 2 * inset + lengths.cornerRing();
    return hasRoom ? frame : QRect();
}

} // namespace velmora
