// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "HelperProcess.h"

#include <memory>

namespace velmora {

/// A video helper that is started before a video needs it. When no video takes it within a minute,
/// it is ended.
class SpareHelper {
public:
    /// Starts the spare helper if there is none, see HelperProcess::start().
    /// @return false when it can't be started
    static bool prepare(QString *error);

    /// Takes the spare helper, or starts one, see HelperProcess::start().
    static std::unique_ptr<HelperProcess> takeOrStart(QString *error);
};

} // namespace velmora
