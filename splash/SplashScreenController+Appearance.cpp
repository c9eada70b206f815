#include "splash/SplashScreenController.h"

#include "controls/ColoredView.h"

namespace velmora {

void SplashScreenController::forEachRing(const std::function<void(TimeProgressView &)> &change) {
    if (m_outlets.lablesView && m_outlets.lablesView->timeProgressView())
        change(*m_outlets.lablesView->timeProgressView());
    if (m_outlets.videoProgressView)
        change(*m_outlets.videoProgressView);
}

void SplashScreenController::setBackgroundColor(const QColor &color) {
    m_backgroundColor = color;
    if (auto *root = qobject_cast<ColoredView *>(viewIfLoaded()))
        root->setColor(color);
}

void SplashScreenController::setBackgroundImage(const QImage &image) {
    m_backgroundImage = image;
    if (m_outlets.bgImage)
        m_outlets.bgImage->setImage(image);
}

void SplashScreenController::setBackgroundImageScaling(unsigned scaling) {
    m_backgroundImageScaling = scaling;
    if (m_outlets.bgImage)
        m_outlets.bgImage->setImageScaling(scaling);
}

void SplashScreenController::setIcon(const QImage &icon) {
    m_icon = icon;
    if (m_outlets.iconImageView)
        m_outlets.iconImageView->setImage(icon);
}

void SplashScreenController::setTextColor(const QColor &color) {
    m_textColor = color;
    if (SplashScreenLabelsView *labels = m_outlets.lablesView) {
        for (TextField *line :
             {labels->textCommentFieldFirst(), labels->textCommentFieldSecond()}) {
            if (line)
                line->setTextColor(color);
        }
    }
}

void SplashScreenController::setTimerTextColor(const QColor &color) {
    m_timerTextColor = color;
    if (m_outlets.lablesView && m_outlets.lablesView->timeLabel())
        m_outlets.lablesView->timeLabel()->setTextColor(color);
    if (m_outlets.timeVideoLabel)
        m_outlets.timeVideoLabel->setTextColor(color);
}

void SplashScreenController::setTimerBackgroundColor(const QColor &color) {
    m_timerBackgroundColor = color;
    forEachRing([&color](TimeProgressView &ring) { ring.setBackgroundColor(color); });
}

void SplashScreenController::setTimerBorderColor(const QColor &color) {
    m_timerBorderColor = color;
    forEachRing([&color](TimeProgressView &ring) { ring.setBackgroundProgressColor(color); });
}

void SplashScreenController::setTimerProgressColor(const QColor &color) {
    m_timerProgressColor = color;
    forEachRing([&color](TimeProgressView &ring) { ring.setProgressColor(color); });
}

void SplashScreenController::setTimerBorderWidth(double width) {
    m_timerBorderWidth = width;
    forEachRing([width](TimeProgressView &ring) { ring.setWidthBorder(width); });
}

void SplashScreenController::setTimerProgressWidth(double width) {
    m_timerProgressWidth = width;
    forEachRing([width](TimeProgressView &ring) { ring.setWidthProgress(width); });
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
