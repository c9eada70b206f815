// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

namespace velmora {

class ResizeLock;
class ViewController;

extern const QString NSWindowDidBecomeKeyNotification;
extern const QString NSWindowDidResignKeyNotification;
extern const QString NSWindowWillCloseNotification;

/// The framework's companion of one host window: knows its state and posts its notifications, whose
/// object is the window (QObject *). A window gets its companion when of() is first called for it,
/// and owns it. Main thread only.
///
/// The key window is the active one. Qt reports that a window becomes active before it reports that
/// the other one is no longer active; here the resign notification is always posted first. A hidden
/// or closed window is not key. When the host puts a window into another widget, it is no longer a
/// window, and its companion posts nothing until it is one again.
class Window : public QObject {
    Q_OBJECT

public:
    /// The companion of a widget's window; null for null.
    static Window *of(QWidget *widget);

    ~Window() override;

    /// True when the window is shown and not minimised.
    bool isVisible() const;
    bool isKeyWindow() const;

    /// The widget that holds the window's content: the central widget of a QMainWindow, otherwise
    /// the window itself.
    QWidget *contentView() const;

    /// A bit of the style mask, and two of the collection behaviour.
    static constexpr quint64 Resizable = 0x8;
    static constexpr quint64 FullScreenPrimary = 0x80;
    static constexpr quint64 FullScreenAuxiliary = 0x100;

    /// Resizable, or 0 when the user can't resize the window. There are no other bits.
    quint64 styleMask() const;

    /// Without Resizable, the user can't resize the window (see ResizeLock); its size does not
    /// change. With it, the user can again, within the limits that the host has set; a window whose
    /// minimum is its maximum stays not resizable. Other bits are ignored. Has no effect on a
    /// window of another toolkit.
    void setStyleMask(quint64 mask);
    bool isResizable() const { return styleMask() & Resizable; }

    /// Default: FullScreenPrimary. Stored without an effect: to remove the window's full-screen
    /// button Qt would have to change the window flags, which hides the window or recreates its
    /// native window. Window managers don't offer to maximise a window that is not Resizable
    /// anyway.
    quint64 collectionBehavior() const { return m_collectionBehavior; }
    void setCollectionBehavior(quint64 behavior) { m_collectionBehavior = behavior; }

    /// The controller that the host has set for the window's content, or null. Not owned.
    ViewController *contentViewController() const { return m_contentViewController; }
    void setContentViewController(ViewController *controller) {
        m_contentViewController = controller;
    }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// isVisible() has become true. Emitted while the call or event that shows the window is still
    /// running.
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
