// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayKeyProxy.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// A native child window for one view, over everything in a superview, also over other native
/// windows. It is opaque and never becomes the active window; the view gets its key events through
/// keyProxy(). Main thread only.
///
/// The window has three levels. QWidget::createWindowContainer() destroys the QWindow that it was
/// given when the host destroys the container, and a widget does not survive the loss of its
/// QWindow. So the window container holds an empty QWindow, the shell. The shell holds the native
/// window of the root widget, which leaves the shell before that is destroyed. The root widget
/// holds the view.
class OverlayContainer : public QObject {
    Q_OBJECT

public:
    /// @param lost called on a later turn of the main loop after the shell's native window or the
    ///             key proxy was destroyed, while the superview may still exist. Afterwards this
    ///             object can only be destroyed.
    OverlayContainer(QWidget *superview, std::function<void()> lost);
    /// Destroys the view, on a later turn of the main loop, unless it has another parent by then.
    ~OverlayContainer() override;

    /// Moves the view into the window, which it fills from then on. Does not show it.
    void setView(QWidget *view);

    /// @param frame in the superview's coordinates
    void setFrame(const QRect &frame);
    void setVisible(bool visible);
    void raise();
    bool isLastChild() const;
    /// False once the host has destroyed a part of this.
    bool isWhole() const { return m_container && m_shell && m_keyProxy; }

    /// The widget in the host's window that has the focus for the view; null once destroyed.
    QWidget *keyProxy() const { return m_keyProxy; }
    /// The native window that is a sibling of the host's native windows.
    QWindow *window() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void reportLostLater();
    void leaveShell();
    void fillShell();

    QWidget *m_root;
    QPointer<QWidget> m_view;
    QRect m_frame; // of the container
    QPointer<QWindow> m_shell;
    QPointer<QWidget> m_container;
    QPointer<OverlayKeyProxy> m_keyProxy;
    std::function<void()> m_lost;
};

/// The last child widget of a superview, which is drawn over the others; null when it has none.
QWidget *topmostChild(const QWidget *superview);

} // namespace velmora
