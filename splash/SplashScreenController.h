// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ContentArea.h"
#include "Overlay.h"
#include "SplashScreenAppearance.h"
#include "SplashScreenControllerProtocolOutput.h"
#include "SplashScreenOutlets.h"
#include "SplashScreenVisibility.h"
#include "VideoPlayer.h"

#include <Velmora/ViewController.h>

#include <QtCore/QPointer>
#include <QtCore/QUrl>

#include <functional>
#include <memory>

namespace velmora {

class SplashScreenLayout;

/// The splash screen of one host window: covers the window's content with one of three views,
/// plays the video, and reports the user's clicks and the video's end to its output. Driven by
/// the presenter. Main thread only, except where an operation says that it moves itself there.
class SplashScreenController : public ViewController,
                               public std::enable_shared_from_this<SplashScreenController> {
public:
    enum ViewState : qint64 {
        SplashScreenViewStateStart = 1,
        SplashScreenViewStateVideo = 2,
        SplashScreenViewStateEnd = 3,
    };

    /// Makes a controller and attaches it to a window, hidden.
    /// @param isUnityWindow the window shows a game engine's view
    static std::shared_ptr<SplashScreenController> initSplashScreenWithWindow(QWidget *window,
                                                                              bool isUnityWindow);
    ~SplashScreenController() override;

    /// Null once the window has been destroyed.
    QWidget *window() const { return m_window; }
    /// Any thread.
    void setWindow(QWidget *window);
    bool isUnityWindow() const { return m_isUnityWindow; }
    void setIsUnityWindow(bool unity) { m_isUnityWindow = unity; }

    void setOutput(const std::weak_ptr<SplashScreenControllerProtocolOutput> &output) {
        m_output = output;
    }

    // View states.
    void swapViewForState(qint64 state);
    // Any thread, as are the two below.
    void showStartScreen();
    /// As showStartScreen(), with nothing but the background's colour.
    void showStartVideoWithoutStartScreen();
    void showVideo();
    /// While a video is playing, shows only the close button.
    void showEndScreen();
    void didVideoEnded();
    void hide();
    void removeFromWindow();

    // Video.
    void initVideoLayer();
    void removeVideoLayer();
    void pauseShowVideo();
    void continueShowVideo();
    void pauseShow();
    void continueShow();
    void pauseProgressViews();
    void compliteProgressViews();
    const QUrl &videoUrl() const { return m_videoUrl; }
    void setVideoUrl(const QUrl &url) { m_videoUrl = url; }
    const QUrl &interstitialUrl() const { return m_interstitialUrl; }
    void setInterstitialUrl(const QUrl &url) { m_interstitialUrl = url; }
    bool isMuted() const { return m_muted; }
    void setMuted(bool muted);
    /// The player of the video; null but from showVideo() until hide().
    VideoPlayer *playerlayer() const { return m_playerlayer.get(); }
    /// Length of the video, seconds; 0 until it is known.
    double videoSeconds() const;

    // The user's actions.
    void closeSplashScreen();
    void removeAdsAction();
    void goToURLForBanner();
    void soundOnOff(int state);

    // Appearance; each value applies at once, but for what is hidden: that shows from the next
    // view state on.
    const SplashScreenAppearance &appearance() const { return m_appearance; }
    void setTopInset(double inset);
    void setIcon(const QImage &icon);
    void setTextColor(const QColor &color);
    void setBackgroundColor(const QColor &color);
    void setBackgroundImage(const QImage &image);
    void setBackgroundImageScaling(unsigned scaling);
    void setTimerTextColor(const QColor &color);
    void setTimerBackgroundColor(const QColor &color);
    void setTimerBorderColor(const QColor &color);
    void setTimerProgressColor(const QColor &color);
    void setTimerBorderWidth(double width);
    void setTimerProgressWidth(double width);
    void setHiddenIcon(bool hidden);
    void setHiddenIconBeforeVideo(bool hidden);
    void setHiddenIconAfterVideo(bool hidden);
    void setHiddenBackgroundImage(bool hidden);
    void setHiddenBackgroundImageBeforeVideo(bool hidden);
    void setHiddenBackgroundImageAfterVideo(bool hidden);
    void setHiddenButtonBeforeVideo(bool hidden);
    void setHiddenButtonAfterVideo(bool hidden);
    void setTimerText(const QString &text);
    void setVideoTimerText(const QString &text);

    // The countdown rings, seconds.
    void startTimerViewFromSec(qint64 fromSec, qint64 endSec);
    void startVideoTimerViewFromSec(qint64 fromSec, qint64 endSec);

    /// Bound when the view is loaded. Each lowers the first constraint by a point on systems
    /// whose minor version number is below 11.
    void setSplashTimerConstraint(const LayoutConstraintPtr &constraint);
    void setSpashTimerConstraint1(const LayoutConstraintPtr &constraint);

    bool canShowEnd() const { return m_canShowEnd; }
    bool withouSplash() const { return m_withouSplash; }
    bool didInitState() const { return m_didInitState; }
    bool isFocus() const { return m_focus; }
    void setFocus(bool focus) { m_focus = focus; }
    quint64 oldWindowCollection() const { return m_oldWindowCollection; }
    bool oldResize() const { return m_oldResize; }

    const SplashScreenOutlets &outlets() const { return m_outlets; }
    /// True when the host has destroyed the view itself. Content that is destroyed around it
    /// leaves the view: it is put over the window's new content.
    bool isGone() const { return m_overlay && !viewIfLoaded(); }
    /// The place of the view in the window; null before and after it has one.
    Overlay *overlay() const { return m_overlay.get(); }

    /// The running application's icon; null when it has none.
    static QImage appIcon();

protected:
    QWidget *loadView() override;
    void viewDidLoad() override;

private:
    SplashScreenController();
    void initViewState();
    void setTitles();
    void setStackingOrder();
    void connectActions();
    void attach();
    void place(QWidget *view, QWidget *superview);
    void placeAnew();
    void applyTopInset();
    void showApplicationIcon();
    void enterStartScreen();
    void showPhase(SplashScreenVisibility::Phase phase);
    void setRootHidden(bool hidden);
    void removePlayer();
    void forEachRing(const std::function<void(TimeProgressView &)> &change);
    void lowerTimerConstraint();
    /// True on the main thread; else the operation is posted there.
    bool isOnMainThread(void (SplashScreenController::*operation)());

    QPointer<QWidget> m_window;
    std::weak_ptr<SplashScreenControllerProtocolOutput> m_output;
    SplashScreenOutlets m_outlets;
    QPointer<SplashScreenLayout> m_layout;
    std::unique_ptr<ContentArea> m_area;
    std::unique_ptr<Overlay> m_overlay;
    bool m_isRootHidden = true;
    std::unique_ptr<VideoPlayer> m_playerlayer;
    QUrl m_videoUrl;
    QUrl m_interstitialUrl;
    /// What the end screen's picture was read from since the last start screen.
    QUrl m_readInterstitial;
    quint64 m_oldWindowCollection = 0;
    bool m_oldResize = false;
    bool m_isUnityWindow = false;
    bool m_focus = false;
    bool m_muted = false;
    bool m_canShowEnd = true;
    bool m_withouSplash = false;
    bool m_didInitState = false;

    SplashScreenAppearance m_appearance;
};

} // namespace velmora
