// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

namespace velmora {

/// How one splash screen looks. Lengths are points. A controller starts with these values; the
/// presenter's options give it the usual look.
struct SplashScreenAppearance {
    /// Height of the strip at the top of the content that stays uncovered.
    double topInset = 0;
    /// Null for the application's own icon.
    QImage icon;
    QColor textColor;
    QColor backgroundColor;
    QImage backgroundImage;
    /// An ImageView::Scaling.
    unsigned backgroundImageScaling = 0;
    QColor timerTextColor;
    QColor timerBackgroundColor;
    QColor timerBorderColor;
    QColor timerProgressColor;
    double timerBorderWidth = 0;
    double timerProgressWidth = 0;
    // What is left out: on both screens, on the start screen, on the end screen.
    bool hiddenIcon = false;
    bool hiddenIconBeforeVideo = false;
    bool hiddenIconAfterVideo = false;
    bool hiddenBackgroundImage = false;
    bool hiddenBackgroundImageBeforeVideo = false;
    bool hiddenBackgroundImageAfterVideo = false;
    bool hiddenButtonBeforeVideo = false;
    bool hiddenButtonAfterVideo = false;
};

} // namespace velmora
