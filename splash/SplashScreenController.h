// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashAnnouncer.h"
#include "SplashScreenAppearance.h"
#include "SplashScreenControllerProtocolOutput.h"
#include "SplashScreenOutlets.h"
#include "SplashScreenPlacement.h"
#include "SplashScreenPlayer.h"
#include "SplashScreenVisibility.h"
#include "SplashScreenWindowLock.h"

#include <Velmora/ViewController.h>

#include <QtCore/QPointer>
#include <QtCore/QUrl>

#include <memory>

namespace velmora {

/// The splash screen of one host window: covers the window's content with one of three views,
/// plays the video, and reports the user's clicks and the video's end to its output. Driven by
/// the presenter. Much of it is done by other classes: SplashScreenPlacement keeps the view over
/// the content, SplashScreenVisibility shows the elements of a phase, SplashScreenAppearance gives
/// them their colours and images, SplashScreenPlayer plays the video.
///
/// Main thread only; the operations that say "any thread" post themselves to the main thread.
class SplashScreenController : public ViewController,
                               public std::enable_shared_from_this<SplashScreenController> {
public:
    enum ViewState : qint64 {
        SplashScreenViewStateStart = 1,
        SplashScreenViewStateVideo = 2,
        SplashScreenViewStateEnd = 3,
    };

    /// How long clicks on a video are ignored after its first picture, seconds.
    static constexpr double VideoSettlingSeconds = 0.7;

    /// Makes a controller and attaches it to a window, hidden.
    /// @param isUnityWindow the window shows a game engine's view
    static std::shared_ptr<SplashScreenController> initSplashScreenWithWindow(QWidget *window,
                                                                              bool isUnityWindow);
    ~SplashScreenController() override;

    /// Null when the window has been destroyed.
    QWidget *window() const { return m_window; }
    /// Attaches the splash screen to a window. Any thread.
    /// @param window null: the controller forgets its window, and the view stays where it is
    void setWindow(QWidget *window);
    bool isUnityWindow() const { return m_isUnityWindow; }
    void setIsUnityWindow(bool unity) { m_isUnityWindow = unity; }

    void setOutput(const std::weak_ptr<SplashScreenControllerProtocolOutput> &output) {
        m_output = output;
    }

    // View states.
    /// Shows the view of a ViewState; any other number changes nothing.
    void swapViewForState(qint64 state);
    /// Any thread.
    void showStartScreen();
    /// As showStartScreen(), with nothing but the background's colour. Any thread.
    void showStartVideoWithoutStartScreen();
    /// Opens the video of videoUrl(), shows it and plays it. Any thread.
    void showVideo();
    /// While a video is playing, shows only the close button. Any thread.
    void showEndScreen();
    void didVideoEnded();
    void didVideoFail();
    /// The view was shown and is not on the screen.
    void didNotAppear();
    /// Ends the video and hides the splash screen.
    void hide();
    /// Takes the view out of the window for good.
    void removeFromWindow();
    /// Tells that an ad comes after the start screen: the start screen then counts down to its end
    /// as an ad. Default: false.
    void setAdExpected(bool expected);

    // Video.
    void initVideoLayer();
    void removeVideoLayer() { m_player.closeAndClear(); }
    void pauseShowVideo();
    void continueShowVideo();
    void pauseShow() { pauseProgressViews(); }
    void continueShow() { compliteProgressViews(); }
    void pauseProgressViews();
    /// Lets the rings go on from where they were stopped.
    void compliteProgressViews();
    const QUrl &videoUrl() const { return m_videoUrl; }
    void setVideoUrl(const QUrl &url) { m_videoUrl = url; }
    /// The picture of the end screen; empty when the ad has none.
    const QUrl &interstitialUrl() const { return m_interstitialUrl; }
    void setInterstitialUrl(const QUrl &url) { m_interstitialUrl = url; }
    bool isMuted() const { return m_player.isMuted(); }
    void setMuted(bool muted) { m_player.setMuted(muted); }
    /// Lets the sound button show isMuted(), which setMuted() does not.
    void updateSoundButton();
    /// The player of the video; null before showVideo() and after hide().
    VideoPlayer *playerlayer() const { return m_player.player(); }
    /// Length of the video, seconds; 0 until it is known.
    double videoSeconds() const { return m_player.seconds(); }

    // The user's actions. They only report to the output.
    void closeSplashScreen();
    void removeAdsAction();
    void goToURLForBanner();
    /// @param state of the sound button: 1 is muted
    void soundOnOff(int state);

    // Appearance. Each value applies at once; setHidden...() only from the next view state on.
    const SplashScreenAppearance::Values &appearance() const { return m_appearance.values(); }
    void setIcon(const QImage &icon) { m_appearance.setIcon(icon); }
    void setTextColor(const QColor &color) { m_appearance.setTextColor(color); }
    void setBackgroundColor(const QColor &color) { m_appearance.setBackgroundColor(color); }
    void setBackgroundImage(const QImage &image) { m_appearance.setBackgroundImage(image); }
    void setBackgroundImageScaling(unsigned scaling) {
        m_appearance.setBackgroundImageScaling(scaling);
    }
    void setTimerTextColor(const QColor &color) { m_appearance.setTimerTextColor(color); }
    void setTimerBackgroundColor(const QColor &color) {
        m_appearance.setTimerBackgroundColor(color);
    }
    void setTimerBorderColor(const QColor &color) { m_appearance.setTimerBorderColor(color); }
    void setTimerProgressColor(const QColor &color) { m_appearance.setTimerProgressColor(color); }
    void setTimerBorderWidth(double width) { m_appearance.setTimerBorderWidth(width); }
    void setTimerProgressWidth(double width) { m_appearance.setTimerProgressWidth(width); }

    const SplashScreenVisibility::LeftOut &leftOut() const { return m_leftOut; }
    void setHiddenIcon(bool hidden) { m_leftOut.icon = hidden; }
    void setHiddenIconBeforeVideo(bool hidden) { m_leftOut.iconBeforeVideo = hidden; }
    void setHiddenIconAfterVideo(bool hidden) { m_leftOut.iconAfterVideo = hidden; }
    void setHiddenBackgroundImage(bool hidden) { m_leftOut.backgroundImage = hidden; }
    void setHiddenBackgroundImageBeforeVideo(bool hidden) {
        m_leftOut.backgroundImageBeforeVideo = hidden;
    }
    void setHiddenBackgroundImageAfterVideo(bool hidden) {
        m_leftOut.backgroundImageAfterVideo = hidden;
    }
    void setHiddenButtonBeforeVideo(bool hidden) { m_leftOut.buttonBeforeVideo = hidden; }
    void setHiddenButtonAfterVideo(bool hidden) { m_leftOut.buttonAfterVideo = hidden; }

    /// Height of the strip at the top of the content that stays uncovered, points.
    double topInset() const { return m_placement.topInset(); }
    void setTopInset(double inset) { m_placement.setTopInset(inset); }

    // The countdowns: texts, and rings in seconds.
    // The mark that says "Ad" repeats the one that belongs to the phase.
    void setTimerText(const QString &text);
    void setVideoTimerText(const QString &text);
    void startTimerViewFromSec(qint64 fromSec, qint64 endSec);
    void startVideoTimerViewFromSec(qint64 fromSec, qint64 endSec);

    /// Bound when the view is loaded. Each lowers the first constraint by a point on systems
    /// whose minor version number is below 11.
    void setSplashTimerConstraint(const LayoutConstraintPtr &constraint);
    void setSpashTimerConstraint1(const LayoutConstraintPtr &constraint);

    /// False while a video plays: showEndScreen() then leaves it on screen.
    bool canShowEnd() const { return m_canShowEnd; }
    /// The start screen is nothing but the background's colour.
    bool withouSplash() const { return m_withouSplash; }
    bool didInitState() const { return m_didInitState; }
    /// Kept for its name; nothing reads it.
    bool isFocus() const { return m_focus; }
    void setFocus(bool focus) { m_focus = focus; }
    // What the window had before the start screen.
    quint64 oldWindowCollection() const { return m_windowLock.oldCollectionBehavior(); }
    bool oldResize() const { return m_windowLock.wasResizable(); }

    const SplashScreenOutlets &outlets() const { return m_outlets; }
    /// True when the host has destroyed the view itself. Content that is destroyed around it
    /// leaves the view: it is put over the window's new content.
    bool isGone() const { return overlay() && !viewIfLoaded(); }
    /// The place of the view in the window; null before and after it has one.
    Overlay *overlay() const { return m_placement.overlay(); }

    /// The running application's icon; null when it has none.
    static QImage appIcon() { return SplashScreenAppearance::applicationIcon(); }

protected:
    QWidget *loadView() override;
    void viewDidLoad() override;

private:
    SplashScreenController();
    void initViewState();
    void connectActions();
    void connectLinkArea();
    /// Where the video's or the still's picture is, in the link area's coordinates.
    QRect adRect() const;
    void attach();
    void enterStartScreen();
    void showPhase(SplashScreenVisibility::Phase phase);
    void loadInterstitial();
    void lowerTimerConstraint();
    /// Shows in the ad mark what the countdown of the phase shows.
    void updateAdMark();
    /// False on the main thread. On any other thread, posts the operation to the main thread and
    /// returns true.
    bool postedToMainThread(void (SplashScreenController::*operation)());

    QPointer<QWidget> m_window;
    std::weak_ptr<SplashScreenControllerProtocolOutput> m_output;
    SplashScreenOutlets m_outlets;
    QPointer<SplashScreenLayout> m_layout;
    SplashScreenPlacement m_placement;
    SplashScreenAppearance m_appearance;
    SplashScreenVisibility::LeftOut m_leftOut;
    SplashScreenWindowLock m_windowLock;
    SplashScreenPlayer m_player;
    SplashAnnouncer m_announcer;
    QUrl m_videoUrl;
    QUrl m_interstitialUrl;
    /// The picture file that the end screen has loaded since the last start screen.
    QUrl m_loadedInterstitial;
    SplashScreenVisibility::Phase m_phase = SplashScreenVisibility::Phase::Start;
    bool m_isAdExpected = false;
    bool m_isUnityWindow = false;
    bool m_focus = false;
    bool m_canShowEnd = true;
    bool m_withouSplash = false;
    bool m_didInitState = false;
};

} // namespace velmora
