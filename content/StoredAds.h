// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdCollection.h"
#include "DrawableAds.h"

#include <QtCore/QString>

#include <functional>
#include <optional>

namespace velmora {

/// The persisted ad table, parsed and screened. A value: made on one thread and used on another.
struct StoredAds {
    AdCollection all;
    DrawableAds drawable;

    /// Reads the table of a caches folder. A large one takes longer than a frame of the host, so
    /// this belongs on another thread than the main one; the main thread must have used
    /// Deployment::current().
    /// @param path     the file (AdTableFile); empty, missing and unreadable ones give no ads
    /// @param isWanted asked between two ads; once it says no, reading ends
    /// @return nothing when the ads were not wanted any more
    static std::optional<StoredAds> read(const QString &path,
                                         const std::function<bool()> &isWanted);
};

} // namespace velmora
