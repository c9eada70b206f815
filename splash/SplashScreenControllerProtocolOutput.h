// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velmora {

/// Receives what a splash-screen controller reports: the user's clicks and the end of the video.
/// Called on the main thread. An implementation may remove the controller inside the call.
class SplashScreenControllerProtocolOutput {
public:
    virtual void didClickOnVideo() = 0;
    /// @param muted what the sound button was switched to
    virtual void didChangeMuted(bool muted) = 0;
    virtual void didClickRemoveAds() = 0;
    virtual void didClickClose() = 0;
    virtual void didVideoEnded() = 0;
    /// The splash screen was shown and does not appear on the screen. It is hidden already.
    virtual void didNotAppear() = 0;

protected:
    ~SplashScreenControllerProtocolOutput() = default;
};

} // namespace velmora
