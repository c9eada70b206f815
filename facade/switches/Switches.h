// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// The process-wide switches. Debug mode and the removal of splash screens from closing windows
/// ("ARC") are process state. Ads-off is stored in the host's settings and in a second place
/// (AdsOffMarker); ads are off when either says so. Both are read at every call, so that a change,
/// also one by another process of the host, takes effect everywhere at once. Any thread.
class Switches {
public:
    /// Switches debug mode on: from now on Log prints messages.
    static void activateDebugMode();
    static bool isDebugModeActivate();

    static void setARCToWindows(bool on);
    static bool isARCActivate();

    static bool isADSRemoved();
    /// @return false when the switch could not be stored in either place: it then holds for this
    ///         run
    static bool setADSRemoved(bool removed);
};

} // namespace velmora
