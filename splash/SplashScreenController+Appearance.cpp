// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenController.h"

#include "ColoredView.h"
#include "SplashScreenLayout.h"

namespace velmora {

void SplashScreenController::forEachRing(const std::function<void(TimeProgressView &)> &change) {
    if (m_outlets.lablesView && m_outlets.lablesView->timeProgressView())
        change(*m_outlets.lablesView->timeProgressView());
    if (m_outlets.videoProgressView)
        change(*m_outlets.videoProgressView);
}

void SplashScreenController::setBackgroundColor(const QColor &color) {
    m_appearance.backgroundColor = color;
    if (auto *root = qobject_cast<ColoredView *>(viewIfLoaded()))
        root->setColor(color);
}

void SplashScreenController::setBackgroundImage(const QImage &image) {
    m_appearance.backgroundImage = image;
    if (m_outlets.bgImage)
        m_outlets.bgImage->setImage(image);
}

void SplashScreenController::setBackgroundImageScaling(unsigned scaling) {
    m_appearance.backgroundImageScaling = scaling;
    if (m_outlets.bgImage)
        m_outlets.bgImage->setImageScaling(scaling);
}

void SplashScreenController::setIcon(const QImage &icon) {
    m_appearance.icon = icon;
    if (m_outlets.iconImageView)
        m_outlets.iconImageView->setImage(icon);
    // The column closes up where there is no icon.
    if (m_layout)
        m_layout->apply();
}

void SplashScreenController::setTextColor(const QColor &color) {
    m_appearance.textColor = color;
    if (SplashScreenLabelsView *labels = m_outlets.lablesView) {
        for (TextField *line :
             {labels->textCommentFieldFirst(), labels->textCommentFieldSecond()}) {
            if (line)
                line->setTextColor(color);
        }
    }
}

void SplashScreenController::setTimerTextColor(const QColor &color) {
    m_appearance.timerTextColor = color;
    if (m_outlets.lablesView && m_outlets.lablesView->timeLabel())
        m_outlets.lablesView->timeLabel()->setTextColor(color);
    if (m_outlets.timeVideoLabel)
        m_outlets.timeVideoLabel->setTextColor(color);
}

void SplashScreenController::setTimerBackgroundColor(const QColor &color) {
    m_appearance.timerBackgroundColor = color;
    forEachRing([&color](TimeProgressView &ring) { ring.setBackgroundColor(color); });
}

void SplashScreenController::setTimerBorderColor(const QColor &color) {
    m_appearance.timerBorderColor = color;
    forEachRing([&color](TimeProgressView &ring) { ring.setBackgroundProgressColor(color); });
}

void SplashScreenController::setTimerProgressColor(const QColor &color) {
    m_appearance.timerProgressColor = color;
    forEachRing([&color](TimeProgressView &ring) { ring.setProgressColor(color); });
}

void SplashScreenController::setTimerBorderWidth(double width) {
    m_appearance.timerBorderWidth = width;
    forEachRing([width](TimeProgressView &ring) { ring.setWidthBorder(width); });
}

void SplashScreenController::setTimerProgressWidth(double width) {
    m_appearance.timerProgressWidth = width;
    forEachRing([width](TimeProgressView &ring) { ring.setWidthProgress(width); });
}

void SplashScreenController::setHiddenIcon(bool hidden) {
    m_appearance.hiddenIcon = hidden;
}

void SplashScreenController::setHiddenIconBeforeVideo(bool hidden) {
    m_appearance.hiddenIconBeforeVideo = hidden;
}

void SplashScreenController::setHiddenIconAfterVideo(bool hidden) {
    m_appearance.hiddenIconAfterVideo = hidden;
}

void SplashScreenController::setHiddenBackgroundImage(bool hidden) {
    m_appearance.hiddenBackgroundImage = hidden;
}

void SplashScreenController::setHiddenBackgroundImageBeforeVideo(bool hidden) {
    m_appearance.hiddenBackgroundImageBeforeVideo = hidden;
}

void SplashScreenController::setHiddenBackgroundImageAfterVideo(bool hidden) {
    m_appearance.hiddenBackgroundImageAfterVideo = hidden;
}

void SplashScreenController::setHiddenButtonBeforeVideo(bool hidden) {
    m_appearance.hiddenButtonBeforeVideo = hidden;
}

void SplashScreenController::setHiddenButtonAfterVideo(bool hidden) {
    m_appearance.hiddenButtonAfterVideo = hidden;
}

void SplashScreenController::setTimerText(const QString &text) {
    if (m_outlets.lablesView && m_outlets.lablesView->timeLabel())
        m_outlets.lablesView->timeLabel()->setText(text);
}

void SplashScreenController::setVideoTimerText(const QString &text) {
    if (m_outlets.timeVideoLabel)
        m_outlets.timeVideoLabel->setText(text);
}

} // namespace velmora
