#pragma once

#include "platform/Overlay.h"
#include "platform/VideoPlayer.h"
#include "splash/SplashScreenControllerProtocolOutput.h"
#include "splash/SplashScreenOutlets.h"

#include <Velmora/ViewController.h>

#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QImage>

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

    // Appearance; each value applies at once.
    /// Height of the strip at the top of the content that stays uncovered, points.
    double topInset() const { return m_topInset; }
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
    void setTimerText(const QString &text);
    void setVideoTimerText(const QString &text);
    const QImage &icon() const { return m_icon; }
    const QColor &textColor() const { return m_textColor; }
    const QColor &backgroundColor() const { return m_backgroundColor; }
    const QImage &backgroundImage() const { return m_backgroundImage; }
    unsigned backgroundImageScaling() const { return m_backgroundImageScaling; }
    const QColor &timerTextColor() const { return m_timerTextColor; }
    const QColor &timerBackgroundColor() const { return m_timerBackgroundColor; }
    const QColor &timerBorderColor() const { return m_timerBorderColor; }
    const QColor &timerProgressColor() const { return m_timerProgressColor; }
    double timerBorderWidth() const { return m_timerBorderWidth; }
    double timerProgressWidth() const { return m_timerProgressWidth; }

    // What the start screen and the end screen leave out; shown from the next view state on.
    bool isHiddenIcon() const { return m_hiddenIcon; }
    void setHiddenIcon(bool hidden) { m_hiddenIcon = hidden; }
    bool isHiddenIconBeforeVideo() const { return m_hiddenIconBeforeVideo; }
    void setHiddenIconBeforeVideo(bool hidden) { m_hiddenIconBeforeVideo = hidden; }
    bool isHiddenIconAfterVideo() const { return m_hiddenIconAfterVideo; }
    void setHiddenIconAfterVideo(bool hidden) { m_hiddenIconAfterVideo = hidden; }
    bool isHiddenBackgroundImage() const { return m_hiddenBackgroundImage; }
    void setHiddenBackgroundImage(bool hidden) { m_hiddenBackgroundImage = hidden; }
    bool isHiddenBackgroundImageBeforeVideo() const { return m_hiddenBackgroundImageBeforeVideo; }
    void setHiddenBackgroundImageBeforeVideo(bool hidden) {
        m_hiddenBackgroundImageBeforeVideo = hidden;
    }
    bool isHiddenBackgroundImageAfterVideo() const { return m_hiddenBackgroundImageAfterVideo; }
    void setHiddenBackgroundImageAfterVideo(bool hidden) {
        m_hiddenBackgroundImageAfterVideo = hidden;
    }
    bool isHiddenButtonBeforeVideo() const { return m_hiddenButtonBeforeVideo; }
    void setHiddenButtonBeforeVideo(bool hidden) { m_hiddenButtonBeforeVideo = hidden; }
    bool isHiddenButtonAfterVideo() const { return m_hiddenButtonAfterVideo; }
    void setHiddenButtonAfterVideo(bool hidden) { m_hiddenButtonAfterVideo = hidden; }

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
    /// True when the host has destroyed what the view lay in.
    bool isGone() const { return m_overlay && !m_overlay->superview(); }
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
    void enterStartScreen();
    void showStart();
    void showVideoControls();
    void showEnd();
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
    std::unique_ptr<Overlay> m_overlay;
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

    double m_topInset = 0;
    QImage m_icon;
    QColor m_textColor;
    QColor m_backgroundColor;
    QImage m_backgroundImage;
    unsigned m_backgroundImageScaling = 0;
    QColor m_timerTextColor;
    QColor m_timerBackgroundColor;
    QColor m_timerBorderColor;
    QColor m_timerProgressColor;
    double m_timerBorderWidth = 0;
    double m_timerProgressWidth = 0;
    bool m_hiddenIcon = false;
    bool m_hiddenIconBeforeVideo = false;
    bool m_hiddenIconAfterVideo = false;
    bool m_hiddenBackgroundImage = false;
    bool m_hiddenBackgroundImageBeforeVideo = false;
    bool m_hiddenBackgroundImageAfterVideo = false;
    bool m_hiddenButtonBeforeVideo = false;
    bool m_hiddenButtonAfterVideo = false;
};

} // namespace velmora
