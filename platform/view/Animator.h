// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// Shows, hides and removes views with a fade. isHidden() changes at once, before the fade starts.
/// A view that is not on screen, or not in the key window, changes without a fade, and every view
/// does where motion is reduced. During a fade, a view that covers its window is drawn as it was
/// when the fade began. Main thread only.
class Animator {
public:
    /// Length of a fade in seconds.
    static constexpr double Duration = 0.25;

    /// Hides or shows a view with a fade. A view that is fading out is transparent to the mouse.
    static void setHidden(QWidget *view, bool hidden);

    /// The same without a fade. Ends a running fade.
    static void setHiddenNow(QWidget *view, bool hidden);

    /// The state that was set last, also while a fade still leads to it.
    static bool isHidden(const QWidget *view);

    /// To be called for a part of a view that has got what it shows only now, a decoded picture for
    /// example: a fade of the view draws it, too.
    static void contentChanged(const QWidget *part);

    /// Fades a view out and then destroys it.
    static void remove(QWidget *view);
};

} // namespace velmora
