// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OverlayKeyProxy.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// A native child window over everything in a superview, the native windows of others too, with
/// a widget tree of its own for one view. It is opaque and never takes the window's activation;
/// keys come through keyProxy(). Main thread only.
///
/// A window container destroys the native window that it was given, also when the host destroys
/// the container, and a widget does not survive the loss of its native window. So the container
/// holds a bare window, and the widget tree's window is a child of that, which leaves in time.
class OverlayContainer : public QObject {
    Q_OBJECT

public:
    /// @param lost called on a later turn when the native window or the key proxy has gone although
    /// the superview
    ///             may still be there; this object is of no more use then
    OverlayContainer(QWidget *superview, std::function<void()> lost);
    /// Destroys the view if it is still inside.
    ~OverlayContainer() override;

    /// Takes the view into the window; it fills it from then on. Not shown by this.
    void setView(QWidget *view);

    /// In the superview's coordinates.
    void setFrame(const QRect &frame);
    void setVisible(bool visible);
    void raise();
    bool isLastChild() const;
    /// False once the host has destroyed a part of it.
    bool isWhole() const { return m_container && m_shell && m_keyProxy; }

    QWidget *keyProxy() const { return m_keyProxy; }
    /// The native window among those of the superview.
    QWindow *window() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void noteLost();
    void leaveShell();
    void fillShell();

    QWidget *m_root;
    QPointer<QWidget> m_view;
    QPointer<QWindow> m_shell;
    QPointer<QWidget> m_container;
    QPointer<OverlayKeyProxy> m_keyProxy;
    std::function<void()> m_lost;
};

/// The last child widget of a superview, the one on top; null when it has none.
QWidget *topmostChild(const QWidget *superview);

} // namespace velmora
