// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>
#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Support.h>
#include <Velmora/ViewController.h>

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

namespace velmora {
class BannerController;
class SplashScreenPresenter;
} // namespace velmora

/// The one class through which a host drives the framework. It has no instances; its state
/// lasts for the process, but for the ads-off switch, which lasts until resetAds().
///
/// All operations are called on the main thread, after the application object (QApplication)
/// was made; those that show or remove advertising move themselves there when called on another
/// thread. Without an application object nothing is added or shown. None throws or reports an
/// error: what is refused does nothing, and says why in the system log while debug mode is on.
/// Windows are never owned: the host may destroy one at any time.
class VELMORA_EXPORT Velmora {
public:
    Velmora() = delete;

    using BannerList = std::vector<std::shared_ptr<velmora::BannerController>>;

    /// @name Switches
    /// @{

    /// Lets the framework explain itself in the system log (category "velmora") until the
    /// process ends. Off at start; there is no way back.
    static void activateDebugMode();
    static bool isDebugModeActivate();

    /// Whether a splash screen leaves a window that is about to close. Default: false.
    static void setARCToWindows(bool on);
    static bool isARCActivate();

    /// True once ads were removed; read from the settings store at every call.
    static bool isADSRemoved();

    /// Allows ads again. Nothing that was removed comes back by itself: add windows and banners
    /// anew.
    static void resetAds();

    /// Removes every banner and splash screen now and shows no advertising any more, in this and
    /// all later runs of the host. Any thread; on another than the main one the work is done a
    /// little later.
    static void removeAdsNow();
    /// @}

    /// @name Splash screens
    /// A splash screen covers the content of every registered window at once: a start screen with
    /// a countdown, a video, an end screen with a close button. Only one window plays the video:
    /// the key one. Losing the key status to a window that is not registered pauses the sequence.
    ///
    /// The first of these calls prepares everything and asks the ad server, once a run together
    /// with the banners, for the first ads. Where a window is asked for, any widget in it will do:
    /// its window is taken. Operations that
    /// show do nothing while ads are removed. Main thread; the four that show or wait move
    /// themselves there.
    /// @{

    /// Registers a window.
    /// In a main window the splash screen covers everything below the menu bar; the top inset
    /// spares what the host wants to keep. A window that is registered while splash screens are
    /// shown joins in.
    /// @param window a top-level widget, or any widget in it
    /// @return false when nothing was registered: the window is registered already, is null, or
    ///         ads are removed
    static bool addSplashScreenToWindow(QWidget *window);
    /// The same for a window with a game engine's view: the splash screen is then a native window
    /// of its own inside it, above any other.
    static bool addSplashScreenToUnityWindow(QWidget *window);
    /// Takes a window out; a sequence goes on in the others, and ends as if closed when there has
    /// been no window for ten seconds. Also while ads are removed.
    static void removeSplashScreenFromWindow(QWidget *window);
    /// Does nothing; here for hosts that call it.
    static void removeADSFromWindow(QWidget *window);

    /// Shows the splash screens if isADSReady(); ignored otherwise and while one is on screen.
    /// When no registered window is key, they are shown as soon as one becomes key.
    static void show();
    /// Shows the splash screens, ready or not; ignored when no registered window is key and
    /// while one is on screen. Ends the running wait: afterwards ads become ready only by
    /// refreshWaitAgain() or a while after a sequence.
    static void forceShow();
    /// As forceShow(), without the start screen: the video comes at once.
    static void showWithouSplash();
    /// Starts the wait for the next splash screen anew, now.
    static void refreshWaitAgain();

    /// A splash screen is on screen.
    static bool isShowSplashScreen();
    /// The wait is over: show() would show.
    static bool isADSReady();
    /// How many times splash screens were shown in this process.
    static qint64 splashScreenStartCount();

    /// The one presenter, made by the first call. Owned by the framework.
    static velmora::SplashScreenPresenter &SSPresenter();

    /// A video for when the ad server has none.
    /// @param videoURL a local file; empty for no video
    /// @param linkURL  what a click on it opens: a web or store link
    static void setDefaultVideoWithURL(const QUrl &videoURL, const QUrl &linkURL);
    /// @param appID the store's number of the advertised application, with or without "id"
    static void setDefaultVideoURL(const QUrl &videoURL, const QString &appID);
    /// @param fileName name, with extension, of a resource of the host's bundle
    static void setDefaultVideoName(const QString &fileName, const QString &appID);
    /// The store link of an application.
    static QUrl urlFromAppID(const QString &appID);

    /// Seconds from the end of a splash screen until ads are ready again. Default: 120.
    static void setSplashScreenWaitingVideoTimeSeconds(qint64 seconds);
    /// Seconds of the start screen, 0 to 15; any other value counts as 5. 0 also hides the start
    /// screen's icon, background image and button. Default: 5.
    static void setSplashScreenLoadTime(qint64 seconds);
    /// Seconds from the registration of the first window until ads are ready, cut to whole ones;
    /// a negative value counts as 30. To be called before that registration. Default: 30.
    static void setSplashScreenDelay(double seconds);
    /// @}

    /// @name Appearance of splash screens
    /// Each applies at once to the splash screens there are, and to those added later. A null
    /// image, an invalid colour or a length that is no finite number is refused. What is hidden
    /// or shown changes with the next screen. Lengths are device-independent pixels. Main thread.
    /// @{

    /// Height of the strip at the top of the content that stays uncovered. Default: 0. Splash
    /// screens added later take the whole part.
    static void setSplashScreenTopInset(double inset);
    /// The same for one window, and only for the splash screen that it has now.
    static void setSplashScreenTopInset(double inset, QWidget *window);

    /// Default: white.
    static void setSplashScreenBackgroundColor(const QColor &color);
    /// Default: none.
    static void setSplashScreenBackgroundImage(const QImage &image);
    /// How the background image fills the window: 0 smaller when it has to be, its shape kept
    /// (default); 1 to the window's size; 2 in its own size; 3 as large as it fits, its shape
    /// kept.
    static void setSplashScreenBackgroundImageScaling(unsigned scaling);
    /// The icon on the start and end screens. Default: the application's window icon.
    static void setSplashScreenIcon(const QImage &icon);
    /// The two lines of text. Default: black.
    static void setSplashScreenTextColor(const QColor &color);

    /// The seconds inside the countdown rings. Default: black.
    static void setSplashScreenTimerTextColor(const QColor &color);
    /// The rings' discs. Default: white.
    static void setSplashScreenTimerBackgroundColor(const QColor &color);
    /// The rings' tracks and elapsed parts. Default: grey and dark grey.
    static void setSplashScreenTimerBorderColor(const QColor &borderColor,
                                                const QColor &progressColor);
    /// Thickness of the tracks, and how much thicker the elapsed parts are. Default: 2 and 4.
    static void setSplashScreenTimerBorderWidth(double borderWidth, double progressWidth);

    /// The remove-ads button on the start screen and on the end screen. Default: shown.
    static void setSplashScreenHiddenButtonBeforeVideo(bool hidden);
    static void setSplashScreenHiddenButtonAfterVideo(bool hidden);
    /// The icon: on both screens, on the end screen, on the start screen. Default: shown.
    static void setSplashScreenHiddenIcon(bool hidden);
    static void setSplashScreenHiddenIconAfterVideo(bool hidden);
    static void setSplashScreenHiddenIconBeforeVideo(bool hidden);
    /// The background image: the same. Default: shown.
    static void setSplashScreenHiddenBackgroundImage(bool hidden);
    static void setSplashScreenHiddenBackgroundImageAfterVideo(bool hidden);
    static void setSplashScreenHiddenBackgroundImageBeforeVideo(bool hidden);
    /// @}

    /// @name Banners
    /// Heights and insets are in device-independent pixels. A banner keeps its picture's
    /// aspect; where it would be wider or higher than the room there is, it is shown smaller. In
    /// a flat window the bottom inset takes half of the height at most. Banners are not added
    /// while ads are removed.
    ///
    /// A banner appears when its first picture is there. A house banner stands in when that could
    /// not be had, or has not come within 15 seconds. Every 15 seconds the next one follows; out
    /// of sight (its window is hidden or minimised, its page lies behind another) the rotation
    /// rests, and goes on as soon as the banner can be seen again.
    ///
    /// Where a window is asked for, any widget in it will do: its window is taken. A banner's
    /// window is the one that it lies in by now: a page may get its banner before it enters a
    /// window, and take it along to another.
    /// @{

    /// Puts a banner at the bottom of a window's content. A window gets one at most; a second
    /// call does nothing. The banner goes with the widget it lies in: a host that replaces a
    /// window's central widget adds the banner anew. Content made of native child windows (a game
    /// engine's view) would hide it.
    /// @param window a top-level widget, or any widget in it; in a main window the banner lies in
    ///               the central widget
    static void addBannerForWindow(QWidget *window);

    /// Puts a banner at the bottom of a view, each call a further one.
    /// @param controller the controller of the host's view; on another thread than the main one,
    ///                   nothing happens when it is gone before the main thread has got to it
    /// @param view       the view to put the banner into; null for the controller's own. When
    ///                   there is neither, the banner is never shown
    static void addBannerForViewController(velmora::ViewController *controller, QWidget *view);

    /// The banner added last among those that lie in a window, or null (and a log line). Owned by
    /// the framework.
    static velmora::BannerController *BControllFromWindow(QWidget *window);

    /// The banner that is the given controller itself, or null (and a log line).
    static velmora::BannerController *
    BControllFromViewController(velmora::ViewController *controller);

    /// All banners that the host added, without those whose window is gone.
    static BannerList &BControllers();

    /// Height of all banners, present and future. Default: 100.
    static void setBannersHeight(double height);
    /// Height 100 for all banners.
    static void setBannersLargeImage();
    /// Height 60 for all banners.
    static void setBannersSmallImage();
    /// Distance of all banners from the bottom, present and future; positive is up. Default: 0.
    static void setBannersBottomInset(double inset);
    /// Distance of all banners from the centre, present and future; positive is to the right,
    /// and never past the right edge. Default: 0.
    static void setBannersCenterXInset(double inset);

    /// The same for one window's banner; the defaults for future banners stay as they are.
    static void setBannerHeight(double height, QWidget *window);
    static void setBannerLargeImageToWindow(QWidget *window);
    static void setBannerSmallImageToWindow(QWidget *window);
    static void setBannerBottomInset(double inset, QWidget *window);
    static void setBannerCenterXInset(double inset, QWidget *window);

    /// Hides or shows the banner of the window that a host's view lies in, at once. A hidden
    /// banner comes back with its next picture.
    static void setBannerHidden(bool hidden, velmora::ViewController *controller);
    /// @}

    /// @name Checks
    /// Each returns true, and logs nothing, while its object does not exist; when it exists,
    /// it logs a line and returns false.
    /// @{
    static bool isInitializedSplashScreenWithLOG_WARNING();
    static bool isInitializedSplashScreenWithLOG_ERROR();
    static bool isInitializedBannerLOG_ERROR();
    /// @}

    /// Logs "VELMORA :: level :: message" while debug mode is on and ads are not removed.
    static void LOG(const QString &level, const QString &message);
};
