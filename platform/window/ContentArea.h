// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// Tells which part of a window a splash screen covers. In a QMainWindow that is everything below
/// the menu bar, with tool bars, docks and status bar. In a window with a content view controller
/// it is that controller's view, in any other window the whole of it. Main thread only.
class ContentArea : public QObject {
    Q_OBJECT

public:
    /// The caller owns this object, and may destroy it before or after the window.
    /// @param changed called on a later turn of the main loop when the menu bar was added, removed,
    ///                shown, hidden or resized. Not called when the superview is resized.
    ContentArea(QWidget *window, std::function<void()> changed);

    /// The widget that a covering view becomes a child of; null once the window is destroyed. In a
    /// QMainWindow this is the window and not the central widget, which the host may replace.
    QWidget *superview() const;

    /// The area in the superview's coordinates.
    QRect rect() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *menuBar() const;
    void checkLater();
    void check();

    QPointer<QWidget> m_window;
    QPointer<QWidget> m_menuBar;
    std::function<void()> m_changed;
    int m_top = 0;
    bool m_checkPosted = false;
};

} // namespace velmora
