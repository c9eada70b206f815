// SPDX-License-Identifier: Apache-2.0
#include "ForeignWindow.h"

namespace velmora {

// A foreign NSView is always in a window of this process, whose size and focus Qt can't tell; its
// QWindow's own state is used.
std::unique_ptr<ForeignWindow> ForeignWindow::watch(QWindow *) {
    return nullptr;
}

} // namespace velmora
