// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// The widget with the native window that a superview lies in: itself or the nearest ancestor that
/// has one; null while there is none. See WindowProxy::nativeWindowOf().
QWidget *nativeWidgetOf(QWidget *superview);

/// Watches the native child windows that would hide a superview's plain children: window
/// containers, and the views of game engines and video players. A QOpenGLWidget is drawn like any
/// other widget and is none of them. Main thread only.
class NativeSiblings : public QObject {
    Q_OBJECT

public:
    /// Native windows of the framework's own, from the bottom to the top.
    enum class Layer { Host, Banner, Overlay };
    /// Marks a native window as one of a layer. Those of the host need no mark;
    /// null is allowed.
    static void setLayer(QWindow *window, Layer layer);

    /// @param changed called on a later turn of the main loop, once for several changes, when a
    ///                native window may have been added, removed, moved, resized, shown, hidden or,
    ///                if it is a widget's, raised
    NativeSiblings(QWidget *superview, std::function<void()> changed);

    /// Whether a visible native window of a layer below intersects a rectangle. Always in a
    /// WindowProxy, which shows nothing itself.
    /// @param layer that of the asking object
    /// @param frame in the superview's coordinates
    bool areVisible(Layer layer, const QRect &frame) const;
    /// Whether a native window of Layer::Overlay is visible.
    bool isOverlayVisible() const;

    /// Watches the native window that the superview lies in now.
    /// @return true when that is another one than at the last call; false for the first one
    bool follow();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watchChildren();
    void watchOrder(QWindow &child);
    void reportLater();

    QWidget *m_superview;
    QPointer<QWindow> m_root;
    std::function<void()> m_changed;
    bool m_hadRoot = false;
    bool m_reportPosted = false;
};

} // namespace velmora
