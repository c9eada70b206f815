// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenAppearance.h"

#include "ColoredView.h"

#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <utility>

namespace velmora {

namespace {

constexpr int LargestIcon = 512;

QImage imageOf(const QIcon &icon) {
    return icon.pixmap(QSize(LargestIcon, LargestIcon), 1.0).toImage();
}

} // namespace

void SplashScreenAppearance::setElements(QWidget *root, const SplashScreenOutlets &outlets,
                                         SplashScreenLayout *layout) {
    m_root = root;
    m_outlets = outlets;
    m_layout = layout;
}

void SplashScreenAppearance::setBackgroundColor(const QColor &color) {
    m_values.backgroundColor = color;
    showBackgroundColor();
}

void SplashScreenAppearance::setBackdropBlack(bool black) {
    if (std::exchange(m_isBackdropBlack, black) != black)
        showBackgroundColor();
}

void SplashScreenAppearance::showBackgroundColor() {
    if (auto *root = qobject_cast<ColoredView *>(m_root))
        root->setColor(m_isBackdropBlack ? QColor(Qt::black) : m_values.backgroundColor);
}

void SplashScreenAppearance::setBackgroundImage(const QImage &image) {
    m_values.backgroundImage = image;
    if (m_outlets.bgImage)
        m_outlets.bgImage->setImage(image);
}

void SplashScreenAppearance::setBackgroundImageScaling(unsigned scaling) {
    m_values.backgroundImageScaling = scaling;
    if (m_outlets.bgImage)
        m_outlets.bgImage->setImageScaling(scaling);
}

void SplashScreenAppearance::setIcon(const QImage &icon) {
    m_values.icon = icon;
    showIcon(icon);
}

void SplashScreenAppearance::showIcon(const QImage &icon) {
    if (m_outlets.iconImageView)
        m_outlets.iconImageView->setImage(icon);
    // The layout keeps no room for an icon that is not there.
    if (m_layout)
        m_layout->apply();
}

void SplashScreenAppearance::showDefaultIcon(const QWidget *window) {
    if (!m_values.icon.isNull())
        return;
    QImage icon = applicationIcon();
    if (icon.isNull() && window)
        icon = imageOf(window->windowIcon());
    if (!icon.isNull())
        showIcon(icon);
}

QImage SplashScreenAppearance::applicationIcon() {
    return imageOf(QApplication::windowIcon());
}

void SplashScreenAppearance::setTextColor(const QColor &color) {
    m_values.textColor = color;
    if (SplashScreenLabelsView *labels = m_outlets.lablesView) {
        for (TextField *line :
             {labels->textCommentFieldFirst(), labels->textCommentFieldSecond()}) {
            if (line)
                line->setTextColor(color);
        }
    }
}

void SplashScreenAppearance::setTimerTextColor(const QColor &color) {
    m_values.timerTextColor = color;
    for (TextField *text : {m_outlets.timeLabel(), m_outlets.timeVideoLabel.data()}) {
        if (text)
            text->setTextColor(color);
    }
}

void SplashScreenAppearance::setTimerBackgroundColor(const QColor &color) {
    m_values.timerBackgroundColor = color;
    for (TimeProgressView *ring : m_outlets.rings())
        ring->setBackgroundColor(color);
}

void SplashScreenAppearance::setTimerBorderColor(const QColor &color) {
    m_values.timerBorderColor = color;
    for (TimeProgressView *ring : m_outlets.rings())
        ring->setBackgroundProgressColor(color);
}

void SplashScreenAppearance::setTimerProgressColor(const QColor &color) {
    m_values.timerProgressColor = color;
    for (TimeProgressView *ring : m_outlets.rings())
        ring->setProgressColor(color);
}

void SplashScreenAppearance::setTimerBorderWidth(double width) {
    m_values.timerBorderWidth = width;
    for (TimeProgressView *ring : m_outlets.rings())
        ring->setWidthBorder(width);
}

void SplashScreenAppearance::setTimerProgressWidth(double width) {
    m_values.timerProgressWidth = width;
    for (TimeProgressView *ring : m_outlets.rings())
        ring->setWidthProgress(width);
}

} // namespace velmora
