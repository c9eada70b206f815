// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenOutlets.h"

#include <QtCore/QObject>

namespace velmora {

/// Places and sizes the elements of a splash screen for the size of its root view: icon, texts and
/// ring of the start screen in a column in the middle, buttons in the corners, pictures and video
/// over the whole view. Owned by the root view. Main thread only.
class SplashScreenLayout : public QObject {
    Q_OBJECT

public:
    SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets);

    /// Lays everything out now. Done also whenever the root view is resized.
    void apply();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeOverVideo();
    void placeRemoveAdsButton();
    /// Places the two lines of text and the ring inside the labels view.
    /// @return the height that the labels view needs; 0 when an element is missing
    int placeTextsAndRing();
    /// Places the icon and the labels view, one below the other in the middle.
    void placeColumn();
    /// A length for the present size of the window, within limits.
    /// @param points the length in a window of 640x480
    int scaled(double points, double smallest, double largest) const;

    QWidget *m_root;
    SplashScreenOutlets m_outlets;
    /// Factor for lengths: 1 in a window of 640x480.
    double m_unit = 1;
    /// The y above which the column must end: that of the remove-ads button.
    int m_columnBottom = 0;
};

} // namespace velmora
