// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashClock.h"
#include "SplashVideo.h"
#include "SplashWindows.h"

#include <memory>

namespace velmora {

/// The sequence of start screen, video and end screen, which all registered windows show in
/// lockstep: its phases, its countdown texts, and its pauses. When a sequence may begin is for
/// the presenter to decide. Main thread only.
class SplashSequence {
public:
    using Controller = SplashWindows::Controller;

    enum State : qint64 {
        SplashScreenStateClosed = -1,          ///< the user closed the sequence
        SplashScreenStateStart = 0,            ///< start screen and countdown
        SplashScreenStateVideo = 1,            ///< video phase, no close button yet
        SplashScreenStateVideoCloseButton = 2, ///< close button shown; the video may play on
        SplashScreenStateEnd = 3,              ///< the video has ended
    };

    /// Of the start screen, seconds.
    static constexpr qint64 DefaultLoadTime = 5;

    SplashSequence(SplashWindows &windows, SplashVideo &video);

    /// Lets the phases be timed by the clock.
    /// @param owner of this object, kept alive while a timer's work runs
    void connectClock(const std::weak_ptr<void> &owner);

    /// Shows the start screens.
    /// @param loadTime seconds to the video
    void begin(qint64 loadTime);
    /// Hides all screens.
    void end();
    /// The user has closed the sequence, which end() has yet to hide.
    void setClosed();
    /// Ends the sequence without hiding anything, because no window is registered any more.
    void setNotShown() { m_show = false; }
    /// Shows a window that was registered during the sequence the phase that it is in.
    void join(const Controller &controller);

    /// Stops clock, rings and video, because the key window is not a registered one.
    void pause();
    /// Goes on where pause() stopped. When no sequence is shown or ads are removed, only
    /// needsResume() changes.
    void resume();

    // Phases.
    void startShowVideo();
    void showCloseButton();
    /// As showCloseButton(), without a change of state().
    void stopVideo();
    void videoEnded();

    // The timer of the current phase: in the start phase it waits for the video, in the video
    // phase for the close button.
    void startWaitVideoTimer(double seconds);
    void stopWaitVideoTimer();
    void startVideoTimerWithTime(double seconds);
    void stopVideoTimer();

    void updateTimerText();
    void updateVideoTimerText();

    /// Sets the length of the video in SplashVideo, once the player knows it.
    void noteVideoDuration();

    SplashClock &clock() { return m_clock; }
    const SplashClock &clock() const { return m_clock; }

    qint64 state() const { return m_state; }
    /// A sequence is on screen.
    bool isShow() const { return m_show; }
    /// The next sequence begins with the video. Cleared when a sequence is closed.
    bool withoutSplash() const { return m_withoutSplash; }
    void setWithoutSplash(bool without) { m_withoutSplash = without; }
    bool needsResume() const { return m_needsResume; }
    /// The video phase has started and the video has not ended.
    bool isShowVideo() const { return m_showVideo; }
    /// A video has been played to its end.
    bool isShowEnd() const { return m_showEnd; }

    /// Of the start screen, whole seconds.
    qint64 loadTime() const { return m_loadTime; }
    void setLoadTime(qint64 seconds) { m_loadTime = seconds; }
    /// Where the ring ends in a window that joins a running sequence; a later change of the load
    /// time does not change it.
    qint64 standardDuration() const { return m_standardDuration; }

private:
    void countdownTicked();
    void startVideo();
    void showEndScreens();
    qint64 secondsToCloseButton() const;

    SplashWindows &m_windows;
    SplashVideo &m_video;
    SplashClock m_clock;
    qint64 m_state = SplashScreenStateStart;
    qint64 m_loadTime = DefaultLoadTime;
    const qint64 m_standardDuration = m_loadTime + SplashClock::VideoSeconds;
    bool m_show = false;
    bool m_withoutSplash = false;
    bool m_needsResume = false;
    bool m_showVideo = false;
    bool m_showEnd = false;
    /// The video ended before the close button was due, and the button has not come yet.
    bool m_closeButtonIsDue = false;
};

} // namespace velmora
