// SPDX-License-Identifier: Apache-2.0
#include "HostWindows.h"

#include "WindowProxy.h"

namespace velmora {

QWindow *HostWindows::windowOf(const QWidget *superview) {
    return WindowProxy::nativeWindowOf(superview->window());
}

bool HostWindows::isIn(const QWidget *superview, const QWindow *window) {
    const QWindow *host = windowOf(superview);
    return host && window &&
           (window == host || host->isAncestorOf(window, QWindow::ExcludeTransients));
}

} // namespace velmora
