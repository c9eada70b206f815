// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// Changes of a view that are seen gradually: the view's logical state changes at once, the
/// fade follows. A view on no screen changes without a fade. Main thread only.
class Animator {
public:
    /// Length of a fade, seconds.
    static constexpr double Duration = 0.25;

    /// Hides or shows a view with a fade. A view that fades out takes no clicks any more.
    static void setHidden(QWidget *view, bool hidden);

    /// The same without a fade; ends one that is under way.
    static void setHiddenNow(QWidget *view, bool hidden);

    /// The logical state, whatever a fade still shows.
    static bool isHidden(const QWidget *view);

    /// Fades a view out, then takes it out of its superview for good and destroys it.
    static void remove(QWidget *view);
};

} // namespace velmora
