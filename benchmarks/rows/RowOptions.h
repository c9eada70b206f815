// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora::bench {

/// How much a row measures.
struct RowOptions {
    /// The number of measurements; 0 for the row's own.
    int rounds = 0;
    /// One measurement, as short as it can be.
    bool isSmoke = false;

    int roundsOr(int usual) const { return isSmoke ? 1 : rounds > 0 ? rounds : usual; }
    int millisecondsOr(int usual, int smoke) const { return isSmoke ? smoke : usual; }
};

} // namespace velmora::bench
