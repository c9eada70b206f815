// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>

namespace velmora {

/// What the machine is and whether it is on the internet. Neither question throws or waits.
class VELMORA_EXPORT AdsMacHelper {
public:
    AdsMacHelper() = delete;

    /// Whether the internet is reachable now, without a connection to establish first. Reads the
    /// system's routes and sends nothing; well below a millisecond. False when they cannot be
    /// read. Main thread.
    static bool isInternetConnection();

    /// The machine's identifier as upper-case UUID text, such as
    /// "3D1219C7-C4C5-404A-AA1F-6D2A48ADFDA4"; empty when the system has none. It stays the same
    /// until the system is installed anew. The first answer holds for the process. The framework
    /// itself neither uses nor sends it. Any thread.
    static QString getSystemUUID();
};

} // namespace velmora
