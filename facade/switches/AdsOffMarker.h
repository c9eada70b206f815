// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// The second place where ads-off is stored, for a user who has paid: a file in the data folder of
/// the host, which is there as long as ads are off. It counts when the settings were lost, torn or
/// could not be written. Any thread.
class AdsOffMarker {
public:
    /// The file; empty while the application has no name.
    static QString path();

    /// False also while the application has no name.
    static bool exists();

    /// Makes or deletes the file.
    /// @return false when that was not possible
    static bool set(bool adsOff);
};

} // namespace velmora
