// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora::bench {

/// Hosts with banners. They run until they are killed.
class BannerHost {
public:
    enum class Then { Stays, Hides, RemovesAds };

    /// Shows so many windows, with a banner in each, on parts of the screen of their own. Prints
    /// "shown" when all banners have their picture, and has then done what `then` says.
    static int runMany(int count, Then then);

    /// Shows a window, and adds a banner when it is painted. Prints "asked" with the time of that.
    static int runFirstPixel();
};

} // namespace velmora::bench
