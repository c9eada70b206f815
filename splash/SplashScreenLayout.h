// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenOutlets.h"

#include <QtCore/QObject>
#include <QtCore/QSize>

#include <algorithm>

namespace velmora {

/// Places and sizes the elements of a splash screen for the size of its root view: icon, texts and
/// ring of the start screen in a column in the middle, buttons in the corners, pictures and video
/// over the whole view. Texts are in the application's typeface, and as large as its font asks for
/// as long as everything fits. Owned by the root view. Main thread only.
///
/// Nothing is mirrored in an application that is read from right to left: everything is centred but
/// for the controls over the video and the close button, which users look for where banners have
/// it, see BannerPlacement.
class SplashScreenLayout : public QObject {
    Q_OBJECT

public:
    SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets);

    /// Lays everything out now. Done also whenever the root view is resized, and when the
    /// application gets another font.
    void apply();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The two lines of text and the ring, from the top of the labels view down.
    struct Lines {
        int width = 0;
        QSize first; ///< of the text in it
        int secondTop = 0;
        QSize second;
        int ringTop = 0;
        int ringSide = 0;
        int height() const { return ringTop + ringSide; }
        bool areCutOff() const { return std::max(first.width(), second.width()) > width; }
    };

    // What is needed with texts of a scale.
    void setTextScale(double scale);
    bool everythingFits() const;
    /// Empty when an element is missing.
    Lines measureLines() const;
    QSize removeAdsButtonSize() const;
    QSize removeAdsImageButtonSize() const;

    void placeOverVideo();
    void placeRemoveAdsButton();
    void placeLines(const Lines &lines);
    /// Places the icon and the labels view, one below the other in the middle.
    void placeColumn();

    bool hasLines() const;
    bool hasIcon() const;
    /// Distance of controls from the edges: of those over the video, and of the others.
    int inset() const { return scaled(16, 8, 24); }
    int margin() const { return scaled(28, 12, 40); }
    /// The y between which the column must lie.
    int columnTop() const { return scaled(24, 8, 40); }
    int columnBottom() const;
    /// A length for the present size of the window, within limits.
    /// @param points the length in a window of 640x480
    int scaled(double points, double smallest, double largest) const;
    /// The same for the size of letters, and of what has to grow with them.
    int scaledText(double points, double smallest, double largest) const;

    QWidget *m_root;
    SplashScreenOutlets m_outlets;
    /// Factor for lengths: 1 in a window of 640x480.
    double m_unit = 1;
    double m_textScale = 1;
};

} // namespace velmora
