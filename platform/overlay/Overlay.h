// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "CoveredShortcuts.h"
#include "NativeSiblings.h"
#include "OverlayAccessibility.h"
#include "OverlayExposure.h"
#include "OverlayFocus.h"
#include "OverlayInput.h"
#include "OverlayMount.h"
#include "OverlaySurroundings.h"
#include "RateLimiter.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace velmora {

/// Keeps one view over everything in a superview. While it is shown, the focus of the window is in
/// the view and not in a widget that the view covers; afterwards the focus returns to where it was.
/// No input reaches what is covered (OverlayInput), shortcuts of the window do not act
/// (CoveredShortcuts), and the second click of a double click that has closed the overlay is
/// dropped (ClickGuard). For assistive technology the view is a modal dialog, and nothing that it
/// covers can be read or worked (OverlayAccessibility). The host may destroy the window, the
/// superview or the view at any moment. Main thread only.
///
/// The view is normally a plain child of the superview, which can fade. But native child windows
/// hide plain widgets and take their clicks, so over these the view is moved into a native window
/// of its own (OverlayWindow). There view->window() is not the host's window, so ask
/// superview()->window() for the host's window, and shortcuts of actions in the view do not work;
/// key events do.
///
/// This class decides which of the two is used, and holds the state: the frame, hidden or shown.
class Overlay : public QObject {
    Q_OBJECT

public:
    enum class Kind {
        Automatic, ///< a plain child; a native window where native child windows would hide that
        Native,    ///< always a native window, because a game engine's view may come at any time
    };

    /// Puts a view over the whole of a superview, hidden. The superview takes ownership of the
    /// view.
    Overlay(QWidget *view, QWidget *superview, Kind kind);
    /// Destroys the view if it still exists.
    ~Overlay() override;

    /// Lets the view outlive its superview. Without a handler both are destroyed together.
    /// @param lost called when the superview is destroyed, with the view hidden and without a
    ///             parent; must not destroy the overlay
    void setSuperviewLostHandler(std::function<void()> lost) { m_superviewLost = std::move(lost); }
    /// Called when the overlay has been shown and does not appear although its window does, after
    /// it was hidden for that. May destroy the overlay.
    void setMissingHandler(std::function<void()> missing) { m_missing = std::move(missing); }
    /// Releases the view, for another overlay, after the superview was destroyed. The caller
    /// becomes the owner. Null while the superview exists, and when there is no view.
    QWidget *takeView();

    /// Null once destroyed or removed.
    QWidget *superview() const { return m_superview; }

    /// In the superview's coordinates.
    QRect frame() const;
    /// Places the view. Afterwards its width and height change with those of the superview, so
    /// that the margins, also negative ones, stay the same.
    void setFrame(const QRect &frame);

    /// Shows or hides the view with a fade; in a native window of its own without one.
    void setHidden(bool hidden);
    void setHiddenNow(bool hidden);
    /// The state that was set last, also while a fade still leads to it.
    bool isHidden() const { return m_hidden; }

    /// Whether the view is in a native window of its own now. Kind::Automatic decides this each
    /// time the view is shown, and moves a shown view when a native window appears under it.
    bool isNative() const { return m_mount && m_mount->isInWindow(); }

    /// Takes the view out of the superview for good, at once, and destroys it on a later turn of
    /// the main loop. Ignored the second time.
    void remove();

private:
    void watchSurroundings();
    void change(bool hidden, void (*set)(QWidget *, bool));
    void prepareToShow();
    void endInput();
    void applyFrame();
    void keepOnTop();

    bool isHiddenByNativeWindows() const;
    void enterWindow();
    void windowLost();
    void nativeWindowsChanged();

    void watchExposure();
    void giveWindowBack();

    void superviewGone();
    void viewGone();

    QPointer<QWidget> m_view;
    QPointer<QWidget> m_superview;
    Kind m_kind;
    bool m_hidden = true;
    // The frame that was set, and the superview's size at that time.
    QRect m_setFrame;
    QSize m_setSize;
    std::function<void()> m_superviewLost;
    std::function<void()> m_missing;
    OverlayExposure m_exposure;
    RateLimiter m_raises;
    // These exist as long as the view and the superview do.
    std::unique_ptr<OverlaySurroundings> m_surroundings;
    std::unique_ptr<NativeSiblings> m_siblings;
    std::unique_ptr<OverlayAccessibility> m_accessibility;
    std::unique_ptr<OverlayFocus> m_focus;
    std::unique_ptr<OverlayInput> m_input;
    std::unique_ptr<CoveredShortcuts> m_shortcuts;
    std::unique_ptr<OverlayMount> m_mount;
};

} // namespace velmora
