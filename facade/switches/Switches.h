// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// The process-wide switches. Debug mode and the removal of splash screens from closing windows
/// ("ARC") are process state. Ads-off is stored in the host's settings and read from there at every
/// call, so that a change, also one by another process of the host, takes effect everywhere at
/// once. Any thread.
class Switches {
public:
    /// Switches debug mode on: from now on Log prints messages.
    static void activateDebugMode();
    static bool isDebugModeActivate();

    static void setARCToWindows(bool on);
    static bool isARCActivate();

    static bool isADSRemoved();
    static void setADSRemoved(bool removed);
};

} // namespace velmora
