// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora::bench {

/// A host that shows the start screens of its windows together.
class StartPhaseHost {
public:
    /// Shows so many windows, which do not overlap, and forces their splash screens. Prints "asked"
    /// with the time just before that, and runs until it is killed.
    static int run(int windows);
};

} // namespace velmora::bench
