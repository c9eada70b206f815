// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenControllerProtocolOutput.h"
#include "SplashScreenOptions.h"
#include "SplashSequence.h"
#include "SplashVideo.h"
#include "SplashWaitingPeriod.h"
#include "SplashWindows.h"
#include "UserActivity.h"

#include <QtCore/QVariantMap>

#include <memory>
#include <vector>

namespace velmora {

/// Shows splash screens in the host's windows: decides whether a requested sequence may begin,
/// registers the windows, follows which of them is key, and answers the user's clicks. Much of it
/// is done by other classes: SplashSequence runs the phases, SplashVideo chooses the video,
/// SplashWaitingPeriod is the wait between two sequences. One per process. Main thread only.
///
/// Starting a timer does not cancel the one that was started before it by the same name: both
/// fire. Only the stop operations cancel.
class SplashScreenPresenter final : public SplashScreenControllerProtocolOutput,
                                    public std::enable_shared_from_this<SplashScreenPresenter> {
public:
    using Controller = SplashWindows::Controller;
    using enum SplashSequence::State;

    static std::shared_ptr<SplashScreenPresenter> make();
    ~SplashScreenPresenter();

    // Requests.
    /// Starts a sequence when the waiting period is over. Waits until a registered window is key,
    /// and until the user is not in the middle of something; all conditions are then checked again.
    void showSplashScreens();
    /// Starts a sequence whether or not the waiting period is over. Cancels the wait even when
    /// the sequence may not start; only refreshWaitAgain() and the end of a sequence start a new
    /// one.
    void needForceShowSplashScreens();
    /// Starts a sequence, also during the waiting period. Does not cancel that.
    void forceShowSplashScreens();
    /// The same without the start screen.
    void forceShowVideoWithoutSplash();
    /// Ends the sequence and starts the waiting period.
    void hideSplashScreens();
    /// Has the downloader prepare a video.
    void starDownLoad() { m_video.download(); }

    // The waiting period.
    bool isAdsReady() const { return m_waiting.isOver(); }
    /// The same as isAdsReady(), in spite of its name.
    bool isWaitTimeLeft() const { return m_waiting.isOver(); }
    void startWaitTimer() { m_waiting.start(); }
    void endWaitTimer() { m_waiting.end(); }
    /// Restarts the waiting period.
    void refreshWaitAgain() { m_waiting.restart(); }

    // The sequence.
    void startTickTimer() { clock().startTick(); }
    void stopTickTimer() { clock().stopTick(); }
    void tick() { clock().tick(); }
    void resumeTimer() { clock().tickAtOnceAndOn(); }
    void updateTimerText() { m_sequence.updateTimerText(); }
    void updateVideoTimerText() { m_sequence.updateVideoTimerText(); }
    void startWaitVideoTimer(double seconds) { m_sequence.startWaitVideoTimer(seconds); }
    void stopWaitVideoTimer() { m_sequence.stopWaitVideoTimer(); }
    void startVideoTimerWithTime(double seconds) { m_sequence.startVideoTimerWithTime(seconds); }
    void stopVideoTimer() { m_sequence.stopVideoTimer(); }
    void pauseSplashScreens() { m_sequence.pause(); }
    void resumeSplashScreen();
    void startShowVideo() { m_sequence.startShowVideo(); }
    void showCloseButton() { m_sequence.showCloseButton(); }
    /// As showCloseButton(), without a change of stateSplashScreen().
    void stopVideo() { m_sequence.stopVideo(); }

    // Windows.
    /// Registers the window that a widget is or lies in; false when it is registered already.
    /// During a sequence the window gets the view of the phase that it is in.
    /// @param unity the window shows a game engine's view
    bool addSplashScreenForWindow(QWidget *window, bool unity);
    void removeSplashScreenWithWindow(QWidget *window);
    void removeAllSplashScreens();
    /// The controller of the window that a widget is or lies in, or null.
    Controller splashScreenControllerWithWindow(const QWidget *window) const;
    void registrationNotificationForWindow(QWidget *window);
    void deregistrationNotificationForWindow(QWidget *window);
    void windowBecameActive(QWidget *window);
    void windowBecameDisactive();
    void windowWillClose(QWidget *window);

    // The user's actions and the video's end.
    void didClickOnVideo() override;
    /// As setMuted(); stores the user's choice, too.
    void didChangeMuted(bool muted) override;
    void didClickRemoveAds() override;
    void didClickClose() override;
    void didVideoEnded() override { m_sequence.videoEnded(); }
    void didNotAppear() override;

    // Options.
    /// Applies all options to one controller; null is ignored.
    void setAllSplashScreenParamsFor(const Controller &controller) const;
    /// The options for controllers that are made later, by the keys of SplashScreenStyle. Holds no
    /// invalid values.
    QVariantMap &splashScreenOptions() { return m_options.values(); }
    void setSplashScreenOptions(const QVariantMap &options) { m_options.values() = options; }
    /// Stores a value that the host has set, for controllers that are made later.
    void storeOption(const SplashScreenOption &option, const QVariant &value) {
        m_options.set(option, value);
    }
    /// Gives all controllers, present and later, the colours of a preset that the host has not set.
    void setAppearance(Appearance appearance);

    // Video.
    void setDefaultVideoWithURL(const QUrl &video, const QUrl &link) {
        m_video.setDefault(video, link);
    }
    const QUrl &defaultVideoUrl() const { return m_video.defaultUrl(); }
    const QUrl &defaultLinkFromVideoUrl() const { return m_video.defaultLink(); }
    const QString &defaultVideoName() const { return m_video.defaultName(); }
    const QUrl &videoUrl() const { return m_video.url(); }
    const QUrl &interstitialVideoUrl() const { return m_video.interstitialUrl(); }
    const QUrl &linkFromVideoUrl() const { return m_video.link(); }
    const QJsonObject &videoInfo() const { return m_video.info(); }
    /// Length of the video chosen last, whole seconds; 0 until the player knows it, which is asked
    /// now.
    qint64 videoDuration();
    /// Applies to all windows, and to those that are registered later.
    void setMuted(bool muted);
    bool isMuted() const { return m_muted; }
    /// As setMuted(), unless the user has chosen at the sound button, in this run or before.
    void setMutedByHost(bool muted);
    /// Sets whether showSplashScreens() starts no sequence while there is no video. Default: false.
    void setSkippedWhenEmpty(bool skipped) { m_isSkippedWhenEmpty = skipped; }

    // State.
    bool isShow() const { return m_sequence.isShow(); }
    bool withoutSplash() const { return m_sequence.withoutSplash(); }
    void setWithoutSplash(bool without) { m_sequence.setWithoutSplash(without); }
    /// A registered window is key.
    bool isFocus() const { return m_windows.hasKey; }
    bool needsResumeSplashScreen() const { return m_sequence.needsResume(); }
    bool isShowVideo() const { return m_sequence.isShowVideo(); }
    bool isShowEnd() const { return m_sequence.isShowEnd(); }
    /// A sequence starts as soon as a registered window becomes key.
    bool isNeedShow() const { return m_needShow; }
    /// A sequence starts as soon as the user has finished what showSplashScreens() would have
    /// interrupted.
    bool isWaitingForUser() const { return m_userActivity.isWaiting(); }
    qint64 stateSplashScreen() const { return m_sequence.state(); }
    /// Sequences that were started in this process.
    qint64 splashScreenStartCount() const { return m_splashScreenStartCount; }
    /// Whole seconds of the sequence that have been counted.
    qint64 passedTime() const { return clock().passedTime(); }
    /// Seconds that a sequence had run when it was last paused.
    double timeDuration() const { return clock().timeDuration(); }

    // Durations, whole seconds.
    /// From the registration of the first window to the first sequence. Default: 0.
    qint64 delayForFirstStart() const { return m_waiting.delayForFirstStart(); }
    void setDelayForFirstStart(qint64 seconds) { m_waiting.setDelayForFirstStart(seconds); }
    /// From the end of one sequence to the next. Default: 120.
    qint64 waitTime() const { return m_waiting.waitTime(); }
    void setWaitTime(qint64 seconds) { m_waiting.setWaitTime(seconds); }
    /// Of the start screen. Default: 5.
    qint64 loadTime() const { return m_sequence.loadTime(); }
    void setLoadTime(qint64 seconds) { m_sequence.setLoadTime(seconds); }
    /// Where the ring ends in a window that joins a running sequence; fixed at construction.
    qint64 splashScreenStandartDuration() const { return m_sequence.standardDuration(); }

    const std::vector<Controller> &SSControllers() const { return m_windows.all(); }
    const Controller &activeSplashScreenController() const { return m_windows.active; }
    const Controller &splashScreenControllerWithVideo() const { return m_windows.playing; }

    const TimerPtr &firstStartTimer() const { return m_waiting.firstStartTimer(); }
    const TimerPtr &prepareTimer() const { return m_waiting.prepareTimer(); }
    const TimerPtr &tickTimer() const { return clock().tickTimer(); }
    const TimerPtr &resumeTickTimer() const { return clock().resumeTickTimer(); }
    const TimerPtr &videoTimer() const { return clock().videoTimer(); }
    // Kept for their names; nothing schedules them.
    TimerPtr resumeCurrentTimer() const { return nullptr; }
    TimerPtr startVideoTimer() const { return nullptr; }
    TimerPtr endVideoTimer() const { return nullptr; }

private:
    SplashScreenPresenter();
    SplashClock &clock() { return m_sequence.clock(); }
    const SplashClock &clock() const { return m_sequence.clock(); }
    /// Runs one of the presenter's operations for as long as there is a presenter.
    template<class... Arguments>
    auto whileAlive(void (SplashScreenPresenter::*operation)(Arguments...)) {
        return [weak = weak_from_this(), operation](Arguments... arguments) {
            if (const auto self = weak.lock())
                (self.get()->*operation)(arguments...);
        };
    }
    void connectParts();
    /// Posts work to the main queue, which is dropped when the presenter is destroyed before.
    void post(std::function<void(SplashScreenPresenter &)> work);
    bool isSkipped();
    void startWhenUserIsIdle();
    bool maySequenceStart() const;
    void startSequence(qint64 loadTime);
    void windowDestroyed(QObject *window);
    void windowPaletteChanged(QWidget *window);
    void applyPresetToAll();
    void windowsChanged();
    void watchForWindows();
    void endWindowlessSequence();
    void endAsIfClosed();
    void forgetGoneControllers();
    void detach(const Controller &controller);

    SplashWindows m_windows;
    SplashVideo m_video;
    SplashSequence m_sequence{m_windows, m_video};
    SplashWaitingPeriod m_waiting;
    SplashScreenOptions m_options;
    UserActivity m_userActivity;

    qint64 m_splashScreenStartCount = 0;
    bool m_needShow = false;
    /// VLMsplashScreenWillShow is being posted.
    bool m_isStarting = false;
    bool m_muted = false;
    bool m_isSkippedWhenEmpty = false;
    /// Runs while a sequence is shown and no window is registered.
    TimerPtr m_windowlessTimer;
};

} // namespace velmora
