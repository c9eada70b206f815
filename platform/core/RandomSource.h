// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

namespace velmora {

/// Uniform 32-bit random numbers: of cryptographic quality from the system, or from another
/// source put in its place (a seeded generator, say). Main thread only.
class RandomSource {
public:
    virtual ~RandomSource() = default;
    virtual quint32 next() = 0;

    static RandomSource &current();

    /// Replaces the source; null goes back to the system's. The caller keeps ownership.
    static void setCurrent(RandomSource *source);
};

} // namespace velmora
