// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace velmora {

/// The native windows that a superview's window is made of. Main thread only.
class HostWindows {
public:
    /// The native window of the window that the superview lies in, see
    /// WindowProxy::nativeWindowOf(); null while there is none.
    static QWindow *windowOf(const QWidget *superview);
    /// Whether a native window is that one or lies in it. Dialogs and menus do not: they are
    /// windows of their own.
    static bool isIn(const QWidget *superview, const QWindow *window);
};

} // namespace velmora
