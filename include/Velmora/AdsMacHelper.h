// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>

namespace velmora {

/// Tells whether the machine is on the internet, and its identifier. Neither function throws or
/// blocks.
class VELMORA_EXPORT AdsMacHelper {
public:
    AdsMacHelper() = delete;

    /// True when the system has a route to the internet that needs no connection to be established
    /// first. Reads the system's routes, which takes less than a millisecond, and sends nothing.
    /// False also when the routes can't be read. Main thread.
    static bool isInternetConnection();

    /// The machine's identifier as upper-case UUID text, such as
    /// "3D1219C7-C4C5-404A-AA1F-6D2A48ADFDA4"; empty when the system has none. It changes only when
    /// the system is reinstalled, and is read once in a process. The framework itself neither uses
    /// nor sends it. Any thread.
    static QString getSystemUUID();
};

} // namespace velmora
