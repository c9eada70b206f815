// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// The process-wide switches that every part of the framework asks. Debug mode and window
/// auto-removal last for the process; ads-off is kept in the settings store and read from there
/// at every question, so that a change counts everywhere at once.
class Switches {
public:
    static void activateDebugMode();
    static bool isDebugModeActivate();

    static void setARCToWindows(bool on);
    static bool isARCActivate();

    static bool isADSRemoved();
    static void setADSRemoved(bool removed);
};

} // namespace velmora
