// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayFocus.h"
#include "OverlayWindow.h"

#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace velmora {

/// Holds a view in a superview in one of two ways: as a plain child, or in a native window of its
/// own (OverlayWindow). Places, shows and raises it the same way in both. Main thread only.
class OverlayMount {
public:
    /// Makes the view a plain child, hidden.
    /// @param focus         told which widget has the focus for the view
    /// @param windowLost called on a later turn of the main loop when the native window is of no
    ///                   use any more, see OverlayWindow; leaveWindow() is due then
    OverlayMount(QWidget *view, QWidget *superview, OverlayFocus &focus,
                 std::function<void()> windowLost);

    bool isInWindow() const { return m_window != nullptr; }
    /// False once the host has destroyed a part of the OverlayWindow.
    bool isWindowWhole() const { return m_window && m_window->isWhole(); }

    /// Moves the view into a native window of its own.
    /// @param hidden whether the overlay is hidden; otherwise the view is shown there at once
    void enterWindow(bool hidden);
    /// Makes the view a plain child again, hidden. Ignored when it is one.
    void leaveWindow();

    /// Places the view.
    /// @param frame in the superview's coordinates
    void setFrame(const QRect &frame);

    /// Hides or shows the view.
    /// @param set how to do that with a plain child: Animator::setHidden or setHiddenNow. A
    ///            native window changes at once, because it can't be drawn translucent.
    void setHidden(bool hidden, void (*set)(QWidget *, bool));

    bool isOnTop() const;
    void raise();

    /// The widget that has the focus for the view: the view itself, or the key proxy.
    QWidget *focusHolder() const;
    /// The native window that holds the view; null when the view shares the superview's.
    QWindow *nativeWindow() const;

private:
    void becomeChild();

    QPointer<QWidget> m_view;
    QWidget *m_superview;
    OverlayFocus &m_focus;
    std::function<void()> m_windowLost;
    QRect m_frame;
    std::unique_ptr<OverlayWindow> m_window;
};

} // namespace velmora
