// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

namespace velmora {

/// The running operating system's version; 0.0 when the system has no version number. Main thread
/// only.
struct SystemVersion {
    int major = 0;
    int minor = 0;

    static SystemVersion current();

    /// For tests: replaces the answer; an empty value restores the real one.
    static void setCurrent(std::optional<SystemVersion> version);
};

} // namespace velmora
