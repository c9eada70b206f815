// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// Lets the loading of libcurl wait until the first stored picture is on the screen. Both at once
/// would delay the picture, and the window of a host that is just starting, by some ten
/// milliseconds. Counts once a process. Any thread.
class FirstPicture {
public:
    /// A stored picture is likely to be shown soon.
    static void expect();

    /// The picture is on the screen, or there is none.
    static void settle();

    /// Waits for settle() if a picture is expected, a quarter of a second at most: nobody may see
    /// the view that is to show it.
    static void wait();
};

} // namespace velmora
