#pragma once

#include "platform/NotificationCenter.h"
#include "platform/TimeSource.h"
#include "platform/Timer.h"
#include "splash/SplashScreenController.h"
#include "splash/SplashScreenControllerProtocolOutput.h"

#include <QtCore/QJsonObject>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>

#include <memory>
#include <unordered_map>
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
    using Controller = std::shared_ptr<SplashScreenController>;

    enum State : qint64 {
        SplashScreenStateClosed = -1,          ///< the user closed the sequence
        SplashScreenStateStart = 0,            ///< start screen and countdown
        SplashScreenStateVideo = 1,            ///< video phase, no close button yet
        SplashScreenStateVideoCloseButton = 2, ///< close button shown; the video may play on
        SplashScreenStateEnd = 3,              ///< the video has ended
    };

    /// From the video's start to the close button, seconds.
    static constexpr qint64 VideoSeconds = 5;

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
    bool isAdsReady() const { return m_waitTimeLeft; }

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
    /// Registers a window; false when it is registered already.
    /// @param unity the window shows a game engine's view
    bool addSplashScreenForWindow(QWidget *window, bool unity);
    void removeSplashScreenWithWindow(QWidget *window);
    void removeAllSplashScreens();
    /// The window's controller, or null.
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
    bool isFocus() const { return m_focus; }
    bool needsResumeSplashScreen() const { return m_needsResumeSplashScreen; }
    bool isShowVideo() const { return m_showVideo; }
    bool isShowEnd() const { return m_showEnd; }
    bool isWaitTimeLeft() const { return m_waitTimeLeft; }
    bool isNeedShow() const { return m_needShow; }
    qint64 stateSplashScreen() const { return m_stateSplashScreen; }
    qint64 splashScreenStartCount() const { return m_splashScreenStartCount; }
    qint64 passedTime() const { return m_passedTime; }
    /// Seconds that a sequence had run when it was last paused.
    double timeDuration() const;

    // Durations, whole seconds.
    /// From the registration of the first window to the first sequence. Default: 0.
    qint64 delayForFirstStart() const { return m_delayForFirstStart; }
    void setDelayForFirstStart(qint64 seconds) { m_delayForFirstStart = seconds; }
    /// From the end of one sequence to the next. Default: 120.
    qint64 waitTime() const { return m_waitTime; }
    void setWaitTime(qint64 seconds) { m_waitTime = seconds; }
    /// Of the start screen. Default: 5.
    qint64 loadTime() const { return m_loadTime; }
    void setLoadTime(qint64 seconds) { m_loadTime = seconds; }
    /// Where the ring ends in a window that joins a running sequence; fixed at construction.
    qint64 splashScreenStandartDuration() const { return m_splashScreenStandartDuration; }

    const std::vector<Controller> &SSControllers() const { return m_SSControllers; }
    const Controller &activeSplashScreenController() const { return m_activeController; }
    const Controller &splashScreenControllerWithVideo() const { return m_controllerWithVideo; }

    const TimerPtr &firstStartTimer() const { return m_firstStartTimer; }
    const TimerPtr &prepareTimer() const { return m_prepareTimer; }
    const TimerPtr &tickTimer() const { return m_tickTimer; }
    const TimerPtr &resumeTickTimer() const { return m_resumeTickTimer; }
    const TimerPtr &videoTimer() const { return m_videoTimer; }
    // Kept for their names; nothing schedules them.
    const TimerPtr &resumeCurrentTimer() const { return m_resumeCurrentTimer; }
    const TimerPtr &startVideoTimer() const { return m_startVideoTimer; }
    const TimerPtr &endVideoTimer() const { return m_endVideoTimer; }

private:
    using Operation = void (SplashScreenPresenter::*)();

    SplashScreenPresenter();
    /// A timer that calls one of the presenter's operations for as long as there is a presenter.
    TimerPtr scheduled(double seconds, Timer::Kind kind, Operation operation);
    /// Posts work to the main queue, dropped when the presenter goes first.
    void post(std::function<void(SplashScreenPresenter &)> work);
    bool maySequenceStart() const;
    void startSequence(qint64 loadTime);
    void showEndScreens();
    /// Running seconds from the start of the sequence to the close button.
    qint64 secondsToCloseButton() const;
    double secondsLeftTo(qint64 second) const;
    void warmUpVideo();
    void chooseVideo();
    void startVideo();
    void noteVideoDuration();
    void lookUpDefaultVideoName();
    void windowDestroyed(QObject *window);
    void forgetGoneControllers();
    void detach(const Controller &controller);

    /// A copy to walk over: what a step does to the windows may make the host add or remove some.
    std::vector<Controller> everyController() const { return m_SSControllers; }

    bool m_show = false;
    bool m_withoutSplash = false;
    bool m_focus = false;
    bool m_needsResumeSplashScreen = false;
    bool m_showVideo = false;
    bool m_showEnd = false;
    bool m_waitTimeLeft = false;
    bool m_muted = false;
    bool m_needShow = false;
    /// The host is being told of a sequence that is about to start.
    bool m_isStarting = false;
    /// The video ended before the close button was due, and the button has not come yet.
    bool m_closeButtonIsDue = false;

    qint64 m_delayForFirstStart = 0;
    qint64 m_waitTime = 120;
    qint64 m_loadTime = 5;
    qint64 m_splashScreenStandartDuration;
    qint64 m_passedTime = 0;
    qint64 m_splashScreenStartCount = 0;
    qint64 m_stateSplashScreen = SplashScreenStateStart;
    qint64 m_videoDuration = 0;

    TimeSource::Duration m_startTimerDate{0};
    TimeSource::Duration m_timeDuration{0};

    TimerPtr m_firstStartTimer;
    TimerPtr m_prepareTimer;
    TimerPtr m_tickTimer;
    TimerPtr m_resumeTickTimer;
    TimerPtr m_videoTimer;
    TimerPtr m_resumeCurrentTimer;
    TimerPtr m_startVideoTimer;
    TimerPtr m_endVideoTimer;

    std::vector<Controller> m_SSControllers;
    Controller m_activeController;
    Controller m_controllerWithVideo;
    std::unordered_map<QObject *, std::vector<NotificationCenter::Observation>>
        m_windowObservations;
    /// Ends the connections to the windows' destruction.
    QObject m_windowGuard;

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
