#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

namespace velmora {

class ViewController;

extern const QString NSWindowDidBecomeKeyNotification;
extern const QString NSWindowDidResignKeyNotification;
extern const QString NSWindowWillCloseNotification;

/// What the framework knows of one host window, and its notifications, whose object is the
/// window. There is one companion a window, made when it is first asked for; it goes with the
/// window. Main thread only.
///
/// Resign always comes before become, although the toolkit reports a newly active window before
/// the loss of the old one. A window that is hidden or closed is not key.
class Window : public QObject {
    Q_OBJECT

public:
    /// The companion of the window that a widget is or lies in; null for null.
    static Window *of(QWidget *widget);

    ~Window() override;

    /// On screen: shown and not minimised.
    bool isVisible() const;
    bool isKeyWindow() const;

    /// The widget that holds the window's content: a main window's central widget, else the
    /// window itself.
    QWidget *contentView() const;

    /// Set by a host that manages its content with a controller; null otherwise. Not owned.
    ViewController *contentViewController() const { return m_contentViewController; }
    void setContentViewController(ViewController *controller) {
        m_contentViewController = controller;
    }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit Window(QWidget *window);
    void becameActive();
    void lostActivation();
    void post(const QString &name);

    QWidget *m_window;
    ViewController *m_contentViewController = nullptr;
    bool m_closing = false;
};

} // namespace velmora
