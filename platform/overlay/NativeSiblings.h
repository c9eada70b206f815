// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <functional>

namespace velmora {

/// The native child windows that a superview's plain children would be hidden behind: those of
/// window containers, game engines' and video players' views. A QOpenGLWidget is none. Watches
/// for new ones and for changes of those that are there. Main thread only.
class NativeSiblings : public QObject {
    Q_OBJECT

public:
    /// @param changed called, on a later turn and once for several changes, whenever a native
    ///                window may have come, gone, moved or been shown.
    NativeSiblings(QWidget *superview, std::function<void()> changed);

    /// Whether a native window is visible over the superview.
    /// @param own one that does not count
    bool areVisible(const QWindow *own) const;

    /// Watches the native window that the superview lies in now.
    /// @return whether that is another one than the last time
    bool follow();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watchChildren();
    void note();

    QWidget *m_superview;
    QPointer<QWindow> m_root;
    std::function<void()> m_changed;
    bool m_hadRoot = false;
    bool m_noted = false;
};

} // namespace velmora
