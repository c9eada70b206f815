// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LayoutConstraint.h"
#include "RemoveAdsButton.h"
#include "TextField.h"

#include <QtCore/QRect>

namespace velmora {

/// Gives single elements of a splash screen their geometry. Null elements are skipped. Main thread
/// only.
class SplashElementPlacing {
public:
    /// An empty frame leaves the element out: it is not drawn and cannot get the keyboard focus.
    static void place(QWidget *element, const QRect &frame);
    /// A button's width follows its title.
    static void place(RemoveAdsButton *button, const QRect &frame);
    /// Puts a countdown's digits into its ring.
    /// @param above how far they lie above the ring's middle; null for not at all
    static void placeCountdown(TextField *digits, const QRect &ring,
                               const LayoutConstraintPtr &above);

    /// Gives a button's title the application's typeface.
    static void setLetters(RemoveAdsButton *button, int pixels);
    /// A rectangle of a size around a centre.
    static QRect centred(const QPoint &centre, const QSize &size);
};

} // namespace velmora
