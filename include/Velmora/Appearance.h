// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// Presets for the colours of splash screens: background, texts and countdown rings. See
/// Velmora::setSplashScreenAppearance().
enum class Appearance {
    Light, ///< black on white
    Dark,  ///< nearly white on nearly black
    /// Dark in windows whose palette is dark, Light in the others. A palette is dark when
    /// QPalette::Window is darker than QPalette::WindowText.
    FollowsHost,
};

} // namespace velmora
