// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

namespace velmora {

/// The user's choice at the sound button of a splash screen. It is stored in the host's settings
/// and applies to all later sequences, also in later runs. Main thread only.
class SoundChoice {
public:
    SoundChoice() = delete;

    /// Whether the user wants no sound; no value before the first click on the button.
    static std::optional<bool> isMuted();
    static void storeMuted(bool muted);
};

} // namespace velmora
