// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenLayout.h"

#include "Animator.h"
#include "SplashTextScale.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace velmora {

namespace {

// The window for which the lengths below are given, points.
constexpr QSizeF NominalSize{640, 480};
// Height of a countdown's digits as a part of its ring's.
constexpr double CountdownSize = 0.36;
// Texts that do not fit are made smaller in these steps.
constexpr double ScaleStep = 0.05;
constexpr int SmallestIcon = 24;

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

void setLetters(RemoveAdsButton *button, int pixels) {
    if (!button)
        return;
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(QFont::DemiBold);
    button->setTitleFont(font);
}

QSize withHeight(const RemoveAdsButton *button, int height) {
    return button ? QSize(button->sizeHint().width(), height) : QSize(0, 0);
}

void resize(RemoveAdsButton *button, const QSize &size) {
    button->resize(button->width(), size.height());
    button->setFrameSize(button->size());
}

} // namespace

SplashScreenLayout::SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets)
    : QObject(root), m_root(root), m_outlets(outlets) {
    root->installEventFilter(this);
}

bool SplashScreenLayout::eventFilter(QObject *watched, QEvent *event) {
    // FontChange, because Qt tells only windows that the application's font has changed.
    if (watched == m_root &&
        (event->type() == QEvent::Resize || event->type() == QEvent::FontChange))
        apply();
    return false;
}

int SplashScreenLayout::scaled(double points, double smallest, double largest) const {
    return int(std::lround(std::clamp(points * m_unit, smallest, largest)));
}

int SplashScreenLayout::scaledText(double points, double smallest, double largest) const {
    return int(std::lround(std::clamp(points * m_unit, smallest, largest) * m_textScale));
}

void SplashScreenLayout::apply() {
    m_unit = std::clamp(
        std::min(m_root->width() / NominalSize.width(), m_root->height() / NominalSize.height()),
        0.5, 1.5);
    double scale = SplashTextScale::ofApplicationFont();
    setTextScale(scale);
    while (scale > SplashTextScale::Smallest && !everythingFits()) {
        scale = std::max(scale - ScaleStep, SplashTextScale::Smallest);
        setTextScale(scale);
    }
    for (QWidget *view :
         std::initializer_list<QWidget *>{m_outlets.bgImage, m_outlets.splashScreenPlayerView,
                                          m_outlets.interstitialImage, m_outlets.urlButton})
        place(view, m_root->rect());
    placeOverVideo();
    placeRemoveAdsButton();
    placeColumn();
}

// Texts.

void SplashScreenLayout::setTextScale(double scale) {
    m_textScale = scale;
    if (hasLines()) {
        m_outlets.lablesView->textCommentFieldFirst()->setTextSize(scaledText(26, 17, 36));
        m_outlets.lablesView->textCommentFieldSecond()->setTextSize(scaledText(16, 13, 22));
    }
    setLetters(m_outlets.removeAdsButton, scaledText(17, 13, 22));
    setLetters(m_outlets.removeAdsImageButton, scaledText(13, 12, 17));
}

bool SplashScreenLayout::everythingFits() const {
    const int icon = hasIcon() ? SmallestIcon + scaled(18, 6, 28) : 0;
    const QSize button = removeAdsButtonSize();
    const QSize imageButton = removeAdsImageButtonSize();
    const int side = m_root->width() - 2 * margin();
    const int overVideo = m_root->width() - 3 * inset() - scaled(36, 28, 48);
    const int belowRing = m_root->height() - 3 * inset() - scaled(52, 40, 72);
    const Lines lines = measureLines();
    return !lines.areCutOff() && icon + lines.height() <= columnBottom() - columnTop() &&
           button.width() <= side && imageButton.width() <= overVideo &&
           imageButton.height() <= belowRing;
}

bool SplashScreenLayout::hasLines() const {
    const SplashScreenLabelsView *labels = m_outlets.lablesView;
    return labels && labels->textCommentFieldFirst() && labels->textCommentFieldSecond() &&
           labels->timeProgressView();
}

SplashScreenLayout::Lines SplashScreenLayout::measureLines() const {
    if (!hasLines())
        return {};
    const SplashScreenLabelsView *labels = m_outlets.lablesView;
    Lines lines;
    lines.width = std::min(m_root->width() - 2 * margin(), scaled(560, 280, 840));
    lines.first = labels->textCommentFieldFirst()->sizeForWidth(lines.width);
    lines.secondTop = lines.first.height() + scaled(6, 3, 10);
    lines.second = labels->textCommentFieldSecond()->sizeForWidth(lines.width);
    lines.ringTop = lines.secondTop + lines.second.height() + scaled(22, 10, 32);
    lines.ringSide = scaled(76, 48, 108);
    return lines;
}

QSize SplashScreenLayout::removeAdsButtonSize() const {
    return withHeight(m_outlets.removeAdsButton, scaledText(42, 32, 54));
}

QSize SplashScreenLayout::removeAdsImageButtonSize() const {
    const RemoveAdsButton *button = m_outlets.removeAdsImageButton;
    const int letters = scaledText(13, 12, 17);
    const qsizetype lines = button ? button->text().count(QLatin1Char('\n')) + 1 : 0;
    return withHeight(button, int(double(lines * letters) * 1.3) + letters);
}

// Places.

int SplashScreenLayout::columnBottom() const {
    const int height = removeAdsButtonSize().height();
    return m_root->height() - margin() - (height > 0 ? height + scaled(16, 8, 24) : 0);
}

bool SplashScreenLayout::hasIcon() const {
    const ImageView *icon = m_outlets.iconImageView;
    return icon && !Animator::isHidden(icon) && icon->hasImage();
}

void SplashScreenLayout::placeOverVideo() {
    const int side = scaled(36, 28, 48);
    const int right = m_root->width() - inset();
    const int bottom = m_root->height() - inset();
    const int ring = scaled(52, 40, 72);
    const QRect ringFrame = square(right - ring, inset(), ring);
    place(m_outlets.videoProgressView, ringFrame);
    placeCountdown(m_outlets.timeVideoLabel, ringFrame, m_outlets.spashTimerConstraint1);
    place(m_outlets.closeButton, square(right - side, inset(), side));
    place(m_outlets.soundButton, square(inset(), bottom - side, side));
    if (RemoveAdsButton *button = m_outlets.removeAdsImageButton) {
        resize(button, removeAdsImageButtonSize());
        button->move(right - button->width(), bottom - button->height());
    }
}

void SplashScreenLayout::placeRemoveAdsButton() {
    if (RemoveAdsButton *button = m_outlets.removeAdsButton) {
        resize(button, removeAdsButtonSize());
        button->move((m_root->width() - button->width()) / 2,
                     m_root->height() - margin() - button->height());
    }
}

void SplashScreenLayout::placeLines(const Lines &lines) {
    if (!hasLines())
        return;
    const SplashScreenLabelsView *labels = m_outlets.lablesView;
    const int x = (m_root->width() - lines.width) / 2;
    place(labels->textCommentFieldFirst(), {x, 0, lines.width, lines.first.height()});
    place(labels->textCommentFieldSecond(),
          {x, lines.secondTop, lines.width, lines.second.height()});
    const QRect ringFrame =
        square((m_root->width() - lines.ringSide) / 2, lines.ringTop, lines.ringSide);
    place(labels->timeProgressView(), ringFrame);
    placeCountdown(labels->timeLabel(), ringFrame, m_outlets.splashTimerConstraint);
}

void SplashScreenLayout::placeColumn() {
    const Lines lines = measureLines();
    placeLines(lines);
    SplashScreenLabelsView *labels = m_outlets.lablesView;
    const int room = std::max(columnBottom() - columnTop(), 0);
    const bool isIconAlone = !labels || Animator::isHidden(labels);
    const int text = isIconAlone ? 0 : lines.height();
    const int gap = isIconAlone ? 0 : scaled(18, 6, 28);
    int side = 0;
    if (hasIcon())
        side = std::max(std::min(scaled(isIconAlone ? 144 : 104, 24, 216), room - text - gap),
                        SmallestIcon);
    const int taken = text + (hasIcon() ? side + gap : 0);
    const int top = columnTop() + std::max(room - taken, 0) / 2;
    if (hasIcon())
        place(m_outlets.iconImageView, square((m_root->width() - side) / 2, top, side));
    if (labels && !isIconAlone) {
        const QRect frame(0, top + (hasIcon() ? side + gap : 0), m_root->width(), text);
        if (labels->geometry() != frame)
            labels->setFrame(frame);
    }
}

} // namespace velmora
