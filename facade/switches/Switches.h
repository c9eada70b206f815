// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// The process-wide switches. Debug mode and window auto-removal ("ARC") last as long as the
/// process. That ads are removed is stored in the settings, and every call reads it there, so that
/// a change made by another process counts at once. Any thread.
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
