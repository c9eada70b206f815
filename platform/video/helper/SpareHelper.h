// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "HelperProcess.h"

#include <memory>

namespace velmora {

/// A video helper that is started before a video needs it. When no video takes it within a minute,
/// it is ended.
class SpareHelper {
public:
    /// Starts the spare helper if there is none.
    /// @return false when no helper can be started, now or later
    static bool prepare();

    /// Takes the spare helper, or starts one.
    static HelperStart takeOrStart();
};

} // namespace velmora
