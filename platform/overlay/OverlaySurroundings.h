// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Watches what an overlay depends on: its superview, and the window that the superview lies in,
/// also when a host moves the superview into another window. Main thread only.
///
/// The signals are emitted from event filters, in the middle of the host's change. A slot may
/// destroy this object.
class OverlaySurroundings : public QObject {
    Q_OBJECT

public:
    explicit OverlaySurroundings(QWidget *superview);

    /// Watches the window that the superview is in now. Called before the view is shown, because a
    /// superview gets no event when one of its parents is moved into another window.
    void followWindow();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void superviewResized();
    /// The superview has a new child, which is not a widget yet: its constructor is still running.
    void childAdded();
    /// The superview was shown, or has another parent.
    void superviewShown();
    /// The window is about to be painted. Qt sends no event to a parent when the order of its
    /// children changes, but it repaints the window.
    void windowAboutToPaint();
    /// The window was shown, or has another native window.
    void nativeWindowChanged();
    void windowActivated();

private:
    void superviewEvent(const QEvent *event);
    void windowEvent(const QEvent *event);

    QWidget *m_superview;
    QPointer<QWidget> m_window;
};

} // namespace velmora
