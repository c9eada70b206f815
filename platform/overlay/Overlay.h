// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "NativeSiblings.h"
#include "OverlayContainer.h"
#include "OverlayFocus.h"
#include "RateLimiter.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace velmora {

/// Keeps one view over everything in a superview, opaque to the mouse and to Tab. While it is
/// shown, the focus of the window is in the view instead of in what lies underneath, and it goes
/// back afterwards. The host may destroy the window, the superview or the view at any moment.
/// Main thread only.
///
/// A plain child of the superview that fades where that is seen; but native child windows hide
/// plain widgets and take their clicks, so over these the view is moved into a native window of
/// its own. Then view->window() is that one: ask superview()->window() for the host's. Shortcuts
/// of actions in the view do not fire there; keys do.
class Overlay : public QObject {
    Q_OBJECT

public:
    enum class Kind {
        Automatic, ///< a plain child; in a container where native child windows would hide one
        Native,    ///< always in a container (a game engine's view may come at any time)
    };

    /// Puts a view, hidden, over what is in a superview, whose whole size it takes. The view is
    /// the superview's from now on.
    Overlay(QWidget *view, QWidget *superview, Kind kind);
    /// Takes the view out of the superview, if that still exists, and destroys it.
    ~Overlay() override;

    /// Lets the view outlive its superview: called when that is destroyed, with the view hidden
    /// and without a parent. The overlay must not be destroyed inside the call. Without a handler
    /// the view goes with its superview.
    void setSuperviewLostHandler(std::function<void()> lost) { m_superviewLost = std::move(lost); }
    /// Gives the view away for another overlay, once its superview is gone; null without a view.
    QWidget *takeView();

    /// Null once destroyed or removed.
    QWidget *superview() const { return m_superview; }

    /// In the superview's coordinates.
    QRect frame() const;
    /// Places the view. Its width and height grow and shrink with the superview from then on;
    /// the margins, negative ones too, stay.
    void setFrame(const QRect &frame);

    /// Shows or hides with a fade; at once in a container, which can't blend.
    void setHidden(bool hidden);
    void setHiddenNow(bool hidden);
    /// The logical state, whatever a fade still shows.
    bool isHidden() const { return m_hidden; }

    /// Whether the view is in a container now. Automatic decides at every showing, and moves the
    /// view when a native window appears meanwhile.
    bool isNative() const { return m_container != nullptr; }

    /// Takes the view out for good, at once, and destroys it on a later turn. Harmless twice.
    void remove();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void change(bool hidden, void (*set)(QWidget *, bool));
    void prepareToShow();
    void applyFrame();
    void superviewGone();
    void viewGone();

    bool nativeWindowsWouldHideIt() const;
    void enterContainer();
    void leaveContainer();
    void containerLost();
    void nativeWindowsChanged();
    void beChild();
    QWidget *focusHolder() const;

    bool isOnTop() const;
    void raise();
    void keepOnTop();
    void followWindow();
    void superviewEvent(QEvent *event);
    void windowEvent(QEvent *event);
    bool viewEvent(QEvent *event);

    QPointer<QWidget> m_view;
    QPointer<QWidget> m_superview;
    QPointer<QWidget> m_window;
    Kind m_kind;
    bool m_hidden = true;
    // The frame as it was set, and the superview's size at that time.
    QRect m_setFrame;
    QSize m_setSize;
    std::function<void()> m_superviewLost;
    RateLimiter m_raises;
    std::unique_ptr<NativeSiblings> m_siblings;
    std::unique_ptr<OverlayFocus> m_focus;
    std::unique_ptr<OverlayContainer> m_container;
};

} // namespace velmora
