// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashClock.h"
#include "SplashScreenControllerProtocolOutput.h"
#include "SplashWaitingPeriod.h"
#include "SplashWindows.h"

#include <QtCore/QJsonObject>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>

#include <memory>
#include <vector>

namespace velmora {

class AdsDownloader;
class AdsEventLogger;

/// Runs the splash-screen sequence in all registered windows in lockstep: start screen with a
/// countdown, video, end screen. One per process. Main thread only.
///
/// A timer field is replaced without cancelling the timer it held; cancelling is explicit.
class SplashScreenPresenter final : public SplashScreenControllerProtocolOutput,
                                    public std::enable_shared_from_this<SplashScreenPresenter> {
public:
    using Controller = SplashWindows::Controller;

    enum State : qint64 {
        SplashScreenStateClosed = -1,          ///< the user closed the sequence
        SplashScreenStateStart = 0,            ///< start screen and countdown
        SplashScreenStateVideo = 1,            ///< video phase, no close button yet
        SplashScreenStateVideoCloseButton = 2, ///< close button shown; the video may play on
        SplashScreenStateEnd = 3,              ///< the video has ended
    };

    static std::shared_ptr<SplashScreenPresenter> make();
    ~SplashScreenPresenter();

    // Requests.
    /// Starts a sequence when the waiting period is over; without a key window, as soon as a
    /// registered window becomes key.
    void showSplashScreens();
    /// Starts a sequence whether or not the waiting period is over; ends that period for good.
    void needForceShowSplashScreens();
    void forceShowSplashScreens();
    void forceShowVideoWithoutSplash();
    /// Ends the sequence and starts the waiting period.
    void hideSplashScreens();
    /// Starts the waiting period anew.
    void refreshWaitAgain();
    /// Prepares a video.
    void starDownLoad();
    bool isAdsReady() const { return m_waiting.isOver(); }

    // Clock.
    void startWaitTimer();
    void endWaitTimer();
    void startTickTimer();
    void stopTickTimer();
    void tick();
    void resumeTimer();
    void updateTimerText();
    void updateVideoTimerText();
    void startWaitVideoTimer(double seconds);
    void stopWaitVideoTimer();
    void startVideoTimerWithTime(double seconds);
    void stopVideoTimer();
    void pauseSplashScreens();
    void resumeSplashScreen();

    // Phases.
    void startShowVideo();
    void showCloseButton();
    /// As showCloseButton(), with the state left alone.
    void stopVideo();

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
    void didChangeMuted(bool muted) override;
    void didClickRemoveAds() override;
    void didClickClose() override;
    void didVideoEnded() override;

    // Options.
    /// Applies all options to one controller; null is ignored.
    void setAllSplashScreenParamsFor(const Controller &controller) const;
    /// Appearance of controllers made later, by key; holds no nulls.
    QVariantMap &splashScreenOptions() { return m_splashScreenOptions; }
    void setSplashScreenOptions(const QVariantMap &options) { m_splashScreenOptions = options; }

    // Video.
    /// The video played when the ad server has none, and where a click on it leads. The name of
    /// the advertised application is looked up in the background.
    void setDefaultVideoWithURL(const QUrl &video, const QUrl &link);
    const QUrl &defaultVideoUrl() const { return m_defaultVideoUrl; }
    const QUrl &defaultLinkFromVideoUrl() const { return m_defaultLinkFromVideoUrl; }
    const QString &defaultVideoName() const { return m_defaultVideoName; }
    const QUrl &videoUrl() const { return m_videoUrl; }
    const QUrl &interstitialVideoUrl() const { return m_interstitialVideoUrl; }
    const QUrl &linkFromVideoUrl() const { return m_linkFromVideoUrl; }
    const QJsonObject &videoInfo() const { return m_videoInfo; }
    /// Length of the video chosen last, whole seconds; 0 until the player knows it.
    qint64 videoDuration();
    void setMuted(bool muted);
    bool isMuted() const { return m_muted; }

    // State.
    bool isShow() const { return m_show; }
    bool withoutSplash() const { return m_withoutSplash; }
    void setWithoutSplash(bool without) { m_withoutSplash = without; }
    bool isFocus() const { return m_windows.hasKey; }
    bool needsResumeSplashScreen() const { return m_needsResumeSplashScreen; }
    bool isShowVideo() const { return m_showVideo; }
    bool isShowEnd() const { return m_showEnd; }
    bool isWaitTimeLeft() const { return m_waiting.isOver(); }
    bool isNeedShow() const { return m_needShow; }
    qint64 stateSplashScreen() const { return m_stateSplashScreen; }
    qint64 splashScreenStartCount() const { return m_splashScreenStartCount; }
    qint64 passedTime() const { return m_clock.passedTime(); }
    /// Seconds that a sequence had run when it was last paused.
    double timeDuration() const { return m_clock.timeDuration(); }

    // Durations, whole seconds.
    /// From the registration of the first window to the first sequence. Default: 0.
    qint64 delayForFirstStart() const { return m_waiting.delayForFirstStart(); }
    void setDelayForFirstStart(qint64 seconds) { m_waiting.setDelayForFirstStart(seconds); }
    /// From the end of one sequence to the next. Default: 120.
    qint64 waitTime() const { return m_waiting.waitTime(); }
    void setWaitTime(qint64 seconds) { m_waiting.setWaitTime(seconds); }
    /// Of the start screen. Default: 5.
    qint64 loadTime() const { return m_loadTime; }
    void setLoadTime(qint64 seconds) { m_loadTime = seconds; }
    /// Where the ring ends in a window that joins a running sequence; fixed at construction.
    qint64 splashScreenStandartDuration() const { return m_splashScreenStandartDuration; }

    const std::vector<Controller> &SSControllers() const { return m_windows.all(); }
    const Controller &activeSplashScreenController() const { return m_windows.active; }
    const Controller &splashScreenControllerWithVideo() const { return m_windows.playing; }

    const TimerPtr &firstStartTimer() const { return m_waiting.firstStartTimer(); }
    const TimerPtr &prepareTimer() const { return m_waiting.prepareTimer(); }
    const TimerPtr &tickTimer() const { return m_clock.tickTimer(); }
    const TimerPtr &resumeTickTimer() const { return m_clock.resumeTickTimer(); }
    const TimerPtr &videoTimer() const { return m_clock.videoTimer(); }
    // Kept for their names; nothing schedules them.
    const TimerPtr &resumeCurrentTimer() const { return m_resumeCurrentTimer; }
    const TimerPtr &startVideoTimer() const { return m_startVideoTimer; }
    const TimerPtr &endVideoTimer() const { return m_endVideoTimer; }

private:
    SplashScreenPresenter();
    /// Runs one of the presenter's operations for as long as there is a presenter.
    template<class... Arguments>
    auto whileAlive(void (SplashScreenPresenter::*operation)(Arguments...)) {
        return [weak = weak_from_this(), operation](Arguments... arguments) {
            if (const auto self = weak.lock())
                (self.get()->*operation)(arguments...);
        };
    }
    void connectParts();
    void countdownTicked();
    /// Posts work to the main queue, dropped when the presenter goes first.
    void post(std::function<void(SplashScreenPresenter &)> work);
    bool maySequenceStart() const;
    void startSequence(qint64 loadTime);
    void showEndScreens();
    /// Running seconds from the start of the sequence to the close button.
    qint64 secondsToCloseButton() const;
    void warmUpVideo();
    void chooseVideo();
    void startVideo();
    void noteVideoDuration();
    void lookUpDefaultVideoName();
    void joinSequence(const Controller &controller);
    void windowDestroyed(QObject *window);
    void watchForWindows();
    void endWindowlessSequence();
    void forgetGoneControllers();
    void detach(const Controller &controller);

    bool m_show = false;
    bool m_withoutSplash = false;
    bool m_needsResumeSplashScreen = false;
    bool m_showVideo = false;
    bool m_showEnd = false;
    bool m_muted = false;
    bool m_needShow = false;
    /// The host is being told of a sequence that is about to start.
    bool m_isStarting = false;
    /// The video ended before the close button was due, and the button has not come yet.
    bool m_closeButtonIsDue = false;

    qint64 m_loadTime = 5;
    qint64 m_splashScreenStandartDuration;
    qint64 m_splashScreenStartCount = 0;
    qint64 m_stateSplashScreen = SplashScreenStateStart;
    qint64 m_videoDuration = 0;

    SplashClock m_clock;
    SplashWaitingPeriod m_waiting;
    SplashWindows m_windows;

    TimerPtr m_resumeCurrentTimer;
    TimerPtr m_startVideoTimer;
    TimerPtr m_endVideoTimer;
    /// Runs while a sequence is shown and no window is registered.
    TimerPtr m_windowlessTimer;

    std::shared_ptr<AdsDownloader> m_downloader;
    AdsEventLogger *m_logger;
    QVariantMap m_splashScreenOptions;

    QUrl m_videoUrl;
    QUrl m_interstitialVideoUrl;
    QUrl m_linkFromVideoUrl;
    QJsonObject m_videoInfo;
    QUrl m_defaultVideoUrl;
    QUrl m_defaultLinkFromVideoUrl;
    QString m_defaultVideoName;
};

} // namespace velmora
