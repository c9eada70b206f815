// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenLayout.h"

#include "Animator.h"

#include <QtCore/QEvent>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace velmora {

namespace {

// The window for which the lengths below are given, points.
constexpr QSizeF NominalSize{640, 480};
// Height of a countdown's digits as a part of its ring's.
constexpr double CountdownSize = 0.36;

void place(QWidget *view, const QRect &frame) {
    if (view && view->geometry() != frame)
        view->setGeometry(frame);
}

QRect square(int x, int y, int side) {
    return {x, y, side, side};
}

void placeCountdown(TextField *text, const QRect &ring, const LayoutConstraintPtr &above) {
    if (!text)
        return;
    text->setTextSize(ring.height() * CountdownSize);
    const int lift = above ? int(std::lround(above->constant())) : 0;
    place(text, ring.translated(0, -lift));
}

// Makes a button as wide as its title is in letters of a size. Returns the button's size.
QSize fit(RemoveAdsButton *button, int letters, int height) {
    QFont font = button->font();
    font.setPixelSize(letters);
    font.setWeight(QFont::DemiBold);
    if (font != button->font())
        button->setFont(font);
    button->resize(button->width(), height);
    button->setFrameSize(button->size());
    return button->size();
}

} // namespace

SplashScreenLayout::SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets)
    : QObject(root), m_root(root), m_outlets(outlets) {
    root->installEventFilter(this);
}

bool SplashScreenLayout::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_root && event->type() == QEvent::Resize)
        apply();
    return false;
}

int SplashScreenLayout::scaled(double points, double smallest, double largest) const {
    return int(std::lround(std::clamp(points * m_unit, smallest, largest)));
}

void SplashScreenLayout::apply() {
    m_unit = std::clamp(
        std::min(m_root->width() / NominalSize.width(), m_root->height() / NominalSize.height()),
        0.5, 1.5);
    for (QWidget *view :
         std::initializer_list<QWidget *>{m_outlets.bgImage, m_outlets.splashScreenPlayerView,
                                          m_outlets.interstitialImage, m_outlets.urlButton})
        place(view, m_root->rect());
    placeOverVideo();
    placeRemoveAdsButton();
    placeColumn();
}

void SplashScreenLayout::placeOverVideo() {
    const int inset = scaled(16, 8, 24);
    const int side = scaled(36, 28, 48);
    const int right = m_root->width() - inset;
    const int bottom = m_root->height() - inset;
    const int ring = scaled(52, 40, 72);
    const QRect ringFrame = square(right - ring, inset, ring);
    place(m_outlets.videoProgressView, ringFrame);
    placeCountdown(m_outlets.timeVideoLabel, ringFrame, m_outlets.spashTimerConstraint1);
    place(m_outlets.closeButton, square(right - side, inset, side));
    place(m_outlets.soundButton, square(inset, bottom - side, side));
    if (RemoveAdsButton *button = m_outlets.removeAdsImageButton) {
        const int letters = scaled(13, 12, 17);
        const qsizetype lines = button->text().count(QLatin1Char('\n')) + 1;
        const QSize size = fit(button, letters, int(lines * letters * 1.3) + letters);
        button->move(right - size.width(), bottom - size.height());
    }
}

void SplashScreenLayout::placeRemoveAdsButton() {
    const int margin = scaled(28, 12, 40);
    m_columnBottom = m_root->height() - margin;
    if (RemoveAdsButton *button = m_outlets.removeAdsButton) {
        const QSize size = fit(button, scaled(17, 13, 22), scaled(42, 32, 54));
        m_columnBottom -= size.height();
        button->move((m_root->width() - size.width()) / 2, m_columnBottom);
        m_columnBottom -= scaled(16, 8, 24);
    }
}

int SplashScreenLayout::placeTextsAndRing() {
    SplashScreenLabelsView *labels = m_outlets.lablesView;
    TextField *first = labels ? labels->textCommentFieldFirst() : nullptr;
    TextField *second = labels ? labels->textCommentFieldSecond() : nullptr;
    TimeProgressView *ring = labels ? labels->timeProgressView() : nullptr;
    if (!first || !second || !ring)
        return 0;
    const int width = std::min(m_root->width() - 2 * scaled(28, 12, 40), scaled(560, 280, 840));
    const int x = (m_root->width() - width) / 2;
    first->setTextSize(scaled(26, 17, 36));
    second->setTextSize(scaled(16, 13, 22));
    const int firstHeight = first->heightForWidth(width);
    const int secondHeight = second->heightForWidth(width);
    const int secondTop = firstHeight + scaled(6, 3, 10);
    const int ringTop = secondTop + secondHeight + scaled(22, 10, 32);
    const int ringSide = scaled(76, 48, 108);
    place(first, {x, 0, width, firstHeight});
    place(second, {x, secondTop, width, secondHeight});
    const QRect ringFrame = square((m_root->width() - ringSide) / 2, ringTop, ringSide);
    place(ring, ringFrame);
    placeCountdown(labels->timeLabel(), ringFrame, m_outlets.splashTimerConstraint);
    return ringTop + ringSide;
}

void SplashScreenLayout::placeColumn() {
    const int height = placeTextsAndRing();
    SplashScreenLabelsView *labels = m_outlets.lablesView;
    const int top = scaled(24, 8, 40);
    const int room = std::max(m_columnBottom - top, 0);
    ImageView *icon = m_outlets.iconImageView;
    const bool isIconAlone = !labels || Animator::isHidden(labels);
    const bool hasIcon = icon && !Animator::isHidden(icon) && icon->hasImage();
    const int text = isIconAlone ? 0 : height;
    const int gap = isIconAlone ? 0 : scaled(18, 6, 28);
    int side = 0;
    if (hasIcon)
        side = std::max(std::min(scaled(isIconAlone ? 144 : 104, 24, 216), room - text - gap), 24);
    const int taken = text + (hasIcon ? side + gap : 0);
    const int columnTop = top + std::max(room - taken, 0) / 2;
    if (hasIcon)
        place(icon, square((m_root->width() - side) / 2, columnTop, side));
    if (labels && !isIconAlone) {
        const QRect frame(0, columnTop + (hasIcon ? side + gap : 0), m_root->width(), height);
        if (labels->geometry() != frame)
            labels->setFrame(frame);
    }
}

} // namespace velmora
