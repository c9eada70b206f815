// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenOutlets.h"
#include "SplashStartLayout.h"
#include "SplashVideoLayout.h"

#include <QtCore/QObject>

namespace velmora {

/// Keeps the elements of a splash screen in their places: pictures and video over the whole view,
/// the others by SplashStartLayout and SplashVideoLayout. At any size the ring or close button is
/// fully visible and nothing overlaps. Owned by the root view. Main thread only.
///
/// Nothing is mirrored in an application that is read from right to left: everything is centred but
/// for the controls over the video, the ad mark and the close button, which users look for where
/// banners have it, see BannerPlacement.
class SplashScreenLayout : public QObject {
    Q_OBJECT

public:
    SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets);

    /// Lays everything out now, by what is visible; ignored while the root view is hidden. Done
    /// also whenever the root view is shown or resized, and when the application gets another font.
    void apply();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The frames of what is visible in the top right corner.
    QList<QRect> corner() const;

    QWidget *m_root;
    SplashScreenOutlets m_outlets;
    SplashStartLayout m_start;
    SplashVideoLayout m_video;
};

} // namespace velmora
