// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenLayout.h"
#include "SplashScreenOutlets.h"

#include <QtCore/QPointer>
#include <QtGui/QColor>
#include <QtGui/QImage>

namespace velmora {

/// How one splash screen looks: keeps each value and applies it to the elements at once. A
/// missing element is skipped. Main thread only.
class SplashScreenAppearance {
public:
    /// Lengths are points. The presenter sets all of them from its options, so there are no
    /// defaults here.
    struct Values {
        QImage icon; ///< null for the icon of the application, else of the window
        QColor textColor;
        QColor backgroundColor;
        QImage backgroundImage;
        unsigned backgroundImageScaling = 0; ///< an ImageView::Scaling
        QColor timerTextColor;
        QColor timerBackgroundColor;
        QColor timerBorderColor;
        QColor timerProgressColor;
        double timerBorderWidth = 0;
        double timerProgressWidth = 0;
    };

    /// Names the elements that later calls change.
    void setElements(QWidget *root, const SplashScreenOutlets &outlets, SplashScreenLayout *layout);

    const Values &values() const { return m_values; }
    void setIcon(const QImage &icon);
    void setTextColor(const QColor &color);
    void setBackgroundColor(const QColor &color);
    /// Sets whether the background is black instead, while a video fades into its still: both have
    /// black bars, and the background shines through. Default: false.
    void setBackdropBlack(bool black);
    void setBackgroundImage(const QImage &image);
    void setBackgroundImageScaling(unsigned scaling);
    void setTimerTextColor(const QColor &color);
    void setTimerBackgroundColor(const QColor &color);
    void setTimerBorderColor(const QColor &color);
    void setTimerProgressColor(const QColor &color);
    void setTimerBorderWidth(double width);
    void setTimerProgressWidth(double width);

    /// Shows the application's icon, or the window's when the application has none, unless an
    /// icon is set. The window may be null.
    void showDefaultIcon(const QWidget *window);

    /// The running application's icon; null when it has none.
    static QImage applicationIcon();

private:
    void showIcon(const QImage &icon);
    void showBackgroundColor();

    Values m_values;
    bool m_isBackdropBlack = false;
    QPointer<QWidget> m_root;
    SplashScreenOutlets m_outlets;
    QPointer<SplashScreenLayout> m_layout;
};

} // namespace velmora
