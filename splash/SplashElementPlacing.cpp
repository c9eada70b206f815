// SPDX-License-Identifier: Apache-2.0
#include "SplashElementPlacing.h"

#include <QtWidgets/QApplication>

#include <cmath>

namespace velmora {

namespace {
// Height of a countdown's digits as a part of its ring's.
constexpr double CountdownSize = 0.36;
} // namespace

void SplashElementPlacing::place(QWidget *element, const QRect &frame) {
    if (element && element->geometry() != frame)
        element->setGeometry(frame);
}

void SplashElementPlacing::place(RemoveAdsButton *button, const QRect &frame) {
    if (!button)
        return;
    button->setFocusPolicy(frame.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    if (frame.isEmpty())
        button->clearFocus();
    place(static_cast<QWidget *>(button), frame);
    // The title may have changed, when the geometry has not.
    button->setFrameSize(frame.size());
}

void SplashElementPlacing::placeCountdown(TextField *digits, const QRect &ring,
                                          const LayoutConstraintPtr &above) {
    if (!digits)
        return;
    digits->setTextSize(ring.height() * CountdownSize);
    const int lift = above ? int(std::lround(above->constant())) : 0;
    place(digits, ring.translated(0, -lift));
}

void SplashElementPlacing::setLetters(RemoveAdsButton *button, int pixels) {
    if (!button)
        return;
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(QFont::DemiBold);
    button->setTitleFont(font);
}

QRect SplashElementPlacing::centred(const QPoint &centre, const QSize &size) {
    return {centre - QPoint(size.width() / 2, size.height() / 2), size};
}

} // namespace velmora
