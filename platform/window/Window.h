// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

namespace velmora {

class ResizeLock;
class ViewController;

extern const QString NSWindowDidBecomeKeyNotification;
extern const QString NSWindowDidResignKeyNotification;
extern const QString NSWindowWillCloseNotification;

/// What the framework knows of one host window, and its notifications, whose object is the
/// window. There is one companion a window, made when it is first asked for; it goes with the
/// window. Main thread only.
///
/// Resign always comes before become, although Qt reports a newly active window before
/// the loss of the old one. A window that is hidden or closed is not key. A widget that has been
/// put into another window is none any more: its companion is silent until it is one again.
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

    /// Bits of the style mask and of the collection behaviour that mean something here.
    static constexpr quint64 Resizable = 0x8;
    static constexpr quint64 FullScreenPrimary = 0x80;
    static constexpr quint64 FullScreenAuxiliary = 0x100;

    /// The window's style: Resizable, unless its user can't resize it. Other bits are ignored
    /// and read as 0.
    quint64 styleMask() const;

    /// Clearing Resizable holds the window at whatever size it has, against its user alone: its
    /// size does not change, the host may resize() it and change its minimum and maximum sizes
    /// all the same. Setting it gives the window back to the limits that the host has set; one
    /// whose limits leave no choice stays not resizable.
    void setStyleMask(quint64 mask);
    bool isResizable() const { return styleMask() & Resizable; }

    /// FullScreenPrimary unless set otherwise. Only kept, not acted upon: taking a window's full
    /// screen button away means changing its window flags, for which Qt hides the
    /// window or makes it anew. Without Resizable, window managers do not offer to maximise.
    quint64 collectionBehavior() const { return m_collectionBehavior; }
    void setCollectionBehavior(quint64 behavior) { m_collectionBehavior = behavior; }

    /// Set by a host that manages its content with a controller; null otherwise. Not owned.
    ViewController *contentViewController() const { return m_contentViewController; }
    void setContentViewController(ViewController *controller) {
        m_contentViewController = controller;
    }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// isVisible() has become true, inside the call or event that made it so.
    void becameVisible();

private:
    explicit Window(QWidget *window);
    void noteVisibility(bool visible);
    void becameActive();
    void lostActivation();
    void post(const QString &name);

    QWidget *m_window;
    ViewController *m_contentViewController = nullptr;
    std::unique_ptr<ResizeLock> m_resizeLock;
    quint64 m_collectionBehavior = FullScreenPrimary;
    bool m_closing = false;
    bool m_wasVisible;
};

} // namespace velmora
