// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// The part of a window that a splash screen covers: everything below a main window's menu bar
/// (tool bars, docks and status bar included), the view of a content view controller, else the
/// whole window. A main window itself is the superview, not its central widget, so that the host
/// may replace that one. Main thread only.
class ContentArea : public QObject {
    Q_OBJECT

public:
    /// Owned by the window's user, who lets it go before or after the window.
    /// @param changed called, on a later turn, when the menu bar has come, gone or changed its
    ///                height; the superview's own resizing is not reported
    ContentArea(QWidget *window, std::function<void()> changed);

    /// The widget that a covering view is a child of; null once the window is gone.
    QWidget *superview() const;

    /// The area in the superview's coordinates.
    QRect rect() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *menuBar() const;
    void checkSoon();
    void check();

    QPointer<QWidget> m_window;
    QPointer<QWidget> m_menuBar;
    std::function<void()> m_changed;
    int m_top = 0;
    bool m_checking = false;
};

} // namespace velmora
