// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AncestorFilter.h"
#include "NativeSiblings.h"
#include "OverlayKeyProxy.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// A native child window for one view, over everything in a superview, also over other native
/// windows. It is opaque and never becomes the active window; the view gets its key events through
/// keyProxy(). Main thread only.
///
/// The view's parent is a widget that is a window for Qt Widgets, and whose QWindow is a child of
/// the host's. It is not a QWidget::createWindowContainer(): that destroys the QWindow together
/// with the container, which a widget does not survive, and an empty QWindow in between is never
/// mapped under Wayland, nor is what it contains.
class OverlayWindow : public QObject {
    Q_OBJECT

public:
    /// @param layer what the window is over
    /// @param lost called on a later turn of the main loop after the host's native window or the
    ///             key proxy was destroyed, while the superview may still exist. Afterwards this
    ///             object can only be destroyed.
    OverlayWindow(QWidget *superview, NativeSiblings::Layer layer, std::function<void()> lost);
    /// Destroys the view, on a later turn of the main loop, unless it has another parent by then.
    ~OverlayWindow() override;

    /// Moves the view into the window, which it fills from then on. Does not show it.
    void setView(QWidget *view);

    /// @param frame in the superview's coordinates
    void setFrame(const QRect &frame);
    /// The window is shown while this is set and the superview is visible. Default: false.
    void setVisible(bool visible);
    void raise();
    /// Whether the host has raised none of its widgets since raise().
    bool isOnTop() const;
    /// False once the host has destroyed a part of this.
    bool isWhole() const { return !m_isLost && m_keyProxy; }

    /// The widget in the host's window that has the focus for the view; null once destroyed.
    QWidget *keyProxy() const { return m_keyProxy; }
    /// The native window, a sibling of the host's native windows.
    QWindow *nativeWindow() const { return m_root->windowHandle(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void reportLostLater();
    void leaveHost();
    void place();
    void followHost(QWindow *host);
    void exposeWithHost();

    QPointer<QWidget> m_superview;
    QWidget *m_root;
    QPointer<QWidget> m_view;
    QPointer<OverlayKeyProxy> m_keyProxy;
    // From the superview up to the widget with the host's native window.
    AncestorFilter m_ancestors{this};
    QRect m_frame;
    bool m_isVisible = false;
    bool m_isLost = false;
    std::function<void()> m_lost;
};

/// The last child widget of a superview, which is drawn over the others; null when it has none.
QWidget *topmostChild(const QWidget *superview);

} // namespace velmora
