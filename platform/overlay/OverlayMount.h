// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayContainer.h"
#include "OverlayFocus.h"

#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace velmora {

/// Holds a view in a superview in one of two ways: as a plain child, or in a native window of its
/// own (OverlayContainer). Places, shows and raises it the same way in both. Main thread only.
class OverlayMount {
public:
    /// Makes the view a plain child, hidden.
    /// @param focus         told which widget has the focus for the view
    /// @param containerLost called on a later turn of the main loop when the container is no longer
    ///                      of use, see OverlayContainer; leaveContainer() is due then
    OverlayMount(QWidget *view, QWidget *superview, OverlayFocus &focus,
                 std::function<void()> containerLost);

    bool isInContainer() const { return m_container != nullptr; }
    /// False once the host has destroyed a part of the container.
    bool isContainerWhole() const { return m_container && m_container->isWhole(); }

    /// Moves the view into a container.
    /// @param hidden whether the overlay is hidden; otherwise the view is shown there at once
    void enterContainer(bool hidden);
    /// Makes the view a plain child again, hidden. Ignored without a container.
    void leaveContainer();

    /// Places the view.
    /// @param frame in the superview's coordinates
    void setFrame(const QRect &frame);

    /// Hides or shows the view.
    /// @param set how to do that with a plain child: Animator::setHidden or setHiddenNow. A
    ///            container changes at once, because a native window can't be drawn translucent.
    void setHidden(bool hidden, void (*set)(QWidget *, bool));

    bool isOnTop() const;
    void raise();

    /// The widget that has the focus for the view: the view itself, or the container's key proxy.
    QWidget *focusHolder() const;
    /// The native window that holds the view; null when the view shares the superview's.
    QWindow *nativeWindow() const;

private:
    void becomeChild();

    QPointer<QWidget> m_view;
    QWidget *m_superview;
    OverlayFocus &m_focus;
    std::function<void()> m_containerLost;
    QRect m_frame;
    std::unique_ptr<OverlayContainer> m_container;
};

} // namespace velmora
