// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

namespace velmora {

/// The running operating system's version. Where the system names none, it counts as 0.0.
struct SystemVersion {
    int major = 0;
    int minor = 0;

    static SystemVersion current();

    /// Replaces the answer, or goes back to the real one when empty.
    static void setCurrent(std::optional<SystemVersion> version);
};

} // namespace velmora
