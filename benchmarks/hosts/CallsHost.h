// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora::bench {

/// A host that measures how long the calls of the class Velmora take.
class CallsHost {
public:
    /// Prints "calls" and four times in milliseconds: of the first call; of all later ones the 99th
    /// percentile and the longest; of forceShow(). Then ends.
    /// @param startsWithBanner whether the first call adds a banner or a splash screen
    static int run(bool startsWithBanner);
};

} // namespace velmora::bench
