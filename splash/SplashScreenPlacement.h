// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ContentArea.h"
#include "Overlay.h"

#include <QtCore/QPointer>

#include <functional>
#include <memory>

namespace velmora {

/// Keeps the view of a splash screen over the content of its window, but for a strip at the top,
/// also when the host replaces that content. Main thread only.
class SplashScreenPlacement {
public:
    struct Handlers {
        /// The host destroys the content. replace() is to be called on a later turn, when the host
        /// has had time to make new content.
        std::function<void()> contentLost;
        /// The view was shown, does not appear, and was hidden again: see OverlayExposure.
        std::function<void()> missing;
    };

    /// Puts the view over the window's content, hidden. The view then belongs to the window.
    /// @param handlers called as their comments say
    void place(QWidget *view, QWidget *window, Overlay::Kind kind, Handlers handlers);
    /// Puts the view over the window's new content.
    void replace();
    /// Takes the view out of the window for good and destroys it on a later turn.
    void remove();

    /// Hides or shows the view with a fade.
    void setHidden(bool hidden);

    /// Height of the strip at the top of the content that stays uncovered, points.
    double topInset() const { return m_topInset; }
    void setTopInset(double inset);

    /// Gives the view its place again.
    void updateFrame() { applyTopInset(); }

    /// True while the window has content for the view to lie over.
    bool hasContent() const { return m_overlay && m_overlay->superview(); }
    /// Null before place().
    Overlay *overlay() const { return m_overlay.get(); }

private:
    void putOver(QWidget *superview, QWidget *view);
    void applyTopInset();

    QPointer<QWidget> m_window;
    Overlay::Kind m_kind = Overlay::Kind::Automatic;
    Handlers m_handlers;
    std::unique_ptr<ContentArea> m_area;
    std::unique_ptr<Overlay> m_overlay;
    bool m_isHidden = true;
    double m_topInset = 0;
};

} // namespace velmora
