// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/qglobal.h>

namespace velmora {

/// A source of uniformly distributed 32-bit random numbers. The default is the system's
/// cryptographic generator; a test replaces it, for example by a seeded generator. Main thread
/// only.
class RandomSource {
public:
    virtual ~RandomSource() = default;
    virtual quint32 next() = 0;

    static RandomSource &current();

    /// For tests: replaces the source; null restores the default. The caller keeps ownership.
    static void setCurrent(RandomSource *source);
};

} // namespace velmora
