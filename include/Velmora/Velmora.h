// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Appearance.h>
#include <Velmora/BannerController.h>
#include <Velmora/Export.h>
#include <Velmora/Motion.h>
#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Support.h>
#include <Velmora/VelmoraEvents.h>
#include <Velmora/ViewController.h>

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

// A host's logging library may define a macro of this name, which would replace the function's.
#pragma push_macro("LOG")
#undef LOG

namespace velmora {
class SplashScreenPresenter;
}

/// The class through which a host uses the framework. All functions are static. The state lasts as
/// long as the application object (QApplication); only the ads-off switch is stored, until
/// resetAds().
///
/// Call the functions on the main thread, after the application object was made, which has to be a
/// QApplication, in a Qt Quick host, too. Some may also be called on another thread, which their
/// comments say: they then do their work a little later on the main thread. Without a QApplication
/// nothing is added or shown.
///
/// Functions that take a window take a widget of Qt Widgets, which may be any widget in the window,
/// or a QWindow: a QQuickView or another QQuickWindow, a QWindow of the host's own, or one that was
/// made from a native id (QWindow::fromWinId(); under X11 only). What is shown over a QWindow is a
/// native child window of it. The key events that come to the QWindow go to the splash screen while
/// that covers it; a window of another toolkit keeps its keys.
///
/// No function throws or blocks. A call that is refused does nothing; VelmoraEvents::refused()
/// tells why, and so does the log while debug mode is on. The framework never owns the host's
/// windows and views: the host may destroy them at any time.
class VELMORA_EXPORT Velmora {
public:
    Velmora() = delete;

    using Appearance = velmora::Appearance;
    using Motion = velmora::Motion;
    using BannerList = std::vector<std::shared_ptr<velmora::BannerController>>;

    /// @name Switches
    /// @{

    /// Switches debug mode on: the framework writes to the log (category "velmora") what it does,
    /// and what it refuses and why. Default: off. It can't be switched off again.
    static void activateDebugMode();
    /// True when debug mode is on.
    static bool isDebugModeActivate();

    /// Sets whether the splash screen of a window is removed when the window is closed. Default:
    /// false, so it is still registered when the host shows the window again.
    static void setARCToWindows(bool on);
    /// What setARCToWindows() has set.
    static bool isARCActivate();

    /// Sets how much banners and splash screens move. With FollowsDesktop the user's setting of the
    /// desktop decides, and is followed while the host runs: on Linux it is asked from the settings
    /// portal (org.freedesktop.portal.Settings) over D-Bus when the first view is made, without
    /// blocking, and until the answer comes motion is not reduced; on macOS it is "Reduce motion".
    /// A desktop without a portal counts as one that allows motion. What is shown changes at once.
    /// Any other value counts as Full. Default: FollowsDesktop. Main thread.
    static void setMotion(Motion motion);

    /// True when ads are removed. Read from the host's settings at every call. Any thread.
    static bool isADSRemoved();

    /// Allows ads again; the only way, since deleting the stored setting alone changes nothing.
    /// Removed banners and splash screens do not return: add the windows and
    /// views again.
    static void resetAds();

    /// Removes all banners and splash screens, and stores that no advertising is shown any more, in
    /// this and in all later runs of the host. Any thread: when this returns, the switch is stored
    /// and every request is being cancelled; called on another thread than the main one, the
    /// windows follow a moment later. The switch is stored twice, in the host's settings and as a
    /// file in its data folder; when neither can be written, the ads are off for this run and
    /// VLMadsOffNotStored is posted.
    static void removeAdsNow();
    /// @}

    /// @name Splash screens
    /// Splash screens cover the content of all registered windows at the same time. A sequence has
    /// three parts: a start screen with a countdown, a video, and an end screen with a close
    /// button. Only the key window, that is the active one, plays the video. While a window that is
    /// not registered is key, the sequence is paused.
    ///
    /// The first call of any of these functions but urlFromAppID() asks the ad server for ads:
    /// banners and splash screens share one request in a process. While ads are removed, nothing is
    /// shown or registered. Main thread, except for show(), forceShow(), showWithouSplash() and
    /// refreshWaitAgain(): any thread.
    /// @{

    /// Registers a window. In a QMainWindow the splash screen covers everything below the menu bar;
    /// see setSplashScreenTopInset() to leave more uncovered. When splash screens are shown
    /// already, the window gets its splash screen at once.
    ///
    /// While a splash screen is shown, keys, clicks, wheel and drops do not reach what it covers,
    /// and shortcuts of the window do not act. Shortcuts with Qt::ApplicationShortcut do, and those
    /// that quit: of an action with QAction::QuitRole, or with Ctrl+Q.
    /// @param window a top-level widget, or any widget in it
    /// @return false when nothing was registered: the window is registered already or null, ads are
    ///         removed, or there is no application object
    static bool addSplashScreenToWindow(QWidget *window);
    static bool addSplashScreenToWindow(QWindow *window);
    /// The same for a window with a game engine's view. The splash screen is a native window of its
    /// own there, above all other native windows.
    static bool addSplashScreenToUnityWindow(QWidget *window);
    static bool addSplashScreenToUnityWindow(QWindow *window);
    /// Unregisters a window and removes its splash screen. A running sequence goes on in the other
    /// windows; when there has been no window for ten seconds, it ends as if closed by the user.
    /// Works also while ads are removed.
    static void removeSplashScreenFromWindow(QWidget *window);
    static void removeSplashScreenFromWindow(QWindow *window);
    /// Does nothing. Exists only for hosts that call it.
    static void removeADSFromWindow(QWidget *window);
    static void removeADSFromWindow(QWindow *window);

    /// Shows the splash screens if isADSReady(). Ignored otherwise, and while they are shown. When
    /// no registered window is key, they are shown as soon as one becomes key. Any thread.
    ///
    /// The user is not interrupted: the splash screens wait while a mouse button or a key is held,
    /// a drag is under way, or a popup or a modal dialog of the host is open, and until one second
    /// after the last keystroke or text of an input method. VelmoraEvents::refused() tells once
    /// that they wait. They are then shown if all of the above is still true. Further calls
    /// meanwhile change nothing; forceShow() ends the waiting, as does the removal of the last
    /// registered window or of ads. A held key counts for ten seconds after its last repeat.
    ///
    /// A modal dialog that is itself registered for splash screens does not count. The popups of Qt
    /// Quick (Menu, Popup) cannot be seen, nor the input to windows of another toolkit: a host that
    /// has them calls show() when they are closed.
    static void show();
    /// Shows the splash screens at once, also while isADSReady() is false, the user is in the
    /// middle of something, or there is no video. Ignored while they are shown, and when no
    /// registered window is key. Ends a running waiting period; ads become ready again a waiting
    /// period after the sequence, or after refreshWaitAgain(). Any thread.
    static void forceShow();
    /// Like forceShow(), but without the start screen: the sequence starts with the video. Any
    /// thread.
    static void showWithouSplash();
    /// Restarts the waiting period: ads are ready when all of it has passed from now on. Any
    /// thread.
    static void refreshWaitAgain();

    /// True while splash screens are shown.
    static bool isShowSplashScreen();
    /// True when the waiting period is over, so that show() shows the splash screens as soon as it
    /// would not interrupt the user.
    static bool isADSReady();
    /// How many sequences this process has started.
    static qint64 splashScreenStartCount();

    /// The process's presenter, which the first call makes. Owned by the framework, and valid as
    /// long as the application object.
    static velmora::SplashScreenPresenter &SSPresenter();

    /// Sets the video that is shown when the ad server has none. Default: none.
    /// @param videoURL a local file; empty for no video
    /// @param linkURL  the web or store link that a click on the video opens
    static void setDefaultVideoWithURL(const QUrl &videoURL, const QUrl &linkURL);
    /// The same for a video that advertises an application of the store.
    /// @param appID the application's number in the store, with or without "id" before it
    static void setDefaultVideoURL(const QUrl &videoURL, const QString &appID);
    /// The same for a video that is a resource of the host's bundle.
    /// @param fileName the resource's name with its extension
    static void setDefaultVideoName(const QString &fileName, const QString &appID);
    /// The store link of an application.
    /// @param appID as above
    static QUrl urlFromAppID(const QString &appID);

    /// Sets the waiting period: the seconds from the end of a sequence until ads are ready again.
    /// Applies from the next waiting period on. With 0 or less, ads are ready at once. Default:
    /// 120.
    static void setSplashScreenWaitingVideoTimeSeconds(qint64 seconds);
    /// Sets how many seconds the start screen is shown, 0 to 15. Any other value counts as 5. With
    /// 0 its icon, background image and button are hidden, too, and stay hidden when a longer time
    /// is set later. Default: 5.
    static void setSplashScreenLoadTime(qint64 seconds);
    /// Sets the seconds from the registration of the first window until ads are ready. Fractions
    /// are cut off; a negative value and NaN count as 30. Call it before that registration.
    /// Default: 30.
    static void setSplashScreenDelay(double seconds);

    /// Sets whether videos are played without sound, which the user can change at the sound button
    /// of the video. Applies at once, also to a video that is playing. The user's choice, once
    /// made, overrides this setting: it is stored in the host's settings (key "splashScreenMuted")
    /// and holds for all later sequences, also of later runs. Default: false.
    static void setSplashScreenMuted(bool muted);
    /// Sets whether show() does nothing while there is neither a video of the ad server nor the
    /// default video, so that the user does not wait for nothing. VelmoraEvents::refused() tells so
    /// with VelmoraEvents::Reason::NoVideo, ads stay ready, and the next call of show() can
    /// succeed. Does not apply to forceShow() and showWithouSplash(). Default: false, the start
    /// screen and the end screen are shown without a video.
    static void setSplashScreenSkippedWhenEmpty(bool skipped);
    /// @}

    /// @name Appearance of splash screens
    /// Each option applies at once to all splash screens, and to those that are added later; only
    /// the "Hidden" options take effect with the next screen that is shown. A null image, an
    /// invalid colour, NaN and infinity are refused. Lengths are in device-independent pixels. Main
    /// thread.
    /// @{

    /// Sets the preset for the colours of background, texts and countdown rings. A colour that the
    /// host has set with one of the functions below, before or after this call, stays as it is; the
    /// defaults that they name are those of Light. With FollowsHost the palette of each window
    /// decides, whenever a sequence of splash screens begins, and when it changes while one is
    /// shown. Images, the widths of the rings, and banners do not depend on the preset. Any other
    /// value counts as Light. Default: Light.
    static void setSplashScreenAppearance(Appearance appearance);

    /// Sets the height of the strip at the top of the content that splash screens leave uncovered.
    /// Default: 0. Splash screens that are added later get the whole-number part only.
    static void setSplashScreenTopInset(double inset);
    /// The same for one window; ignored when that has no splash screen. It does not apply to a
    /// splash screen that the window gets later.
    static void setSplashScreenTopInset(double inset, QWidget *window);
    static void setSplashScreenTopInset(double inset, QWindow *window);

    /// Sets the background colour. Default: white.
    static void setSplashScreenBackgroundColor(const QColor &color);
    /// Sets the background image. Default: none.
    static void setSplashScreenBackgroundImage(const QImage &image);
    /// Sets how the background image is scaled to the window: 0 scales it down to fit, with its
    /// aspect ratio kept; 1 stretches it to the window's size; 2 does not scale it; 3 scales it up
    /// or down to fit, with its aspect ratio kept. Any other value counts as 0. Default: 0.
    static void setSplashScreenBackgroundImageScaling(unsigned scaling);
    /// Sets the icon on the start and end screens. Default: QApplication::windowIcon(), or the
    /// window's own icon when that is null.
    static void setSplashScreenIcon(const QImage &icon);
    /// Sets the colour of the two lines of text. Default: black.
    static void setSplashScreenTextColor(const QColor &color);

    /// Sets the colour of the seconds in the countdown rings. Default: black.
    static void setSplashScreenTimerTextColor(const QColor &color);
    /// Sets the colour of the discs in the countdown rings. Default: white.
    static void setSplashScreenTimerBackgroundColor(const QColor &color);
    /// Sets the colours of the countdown rings. Default: grey and dark grey.
    /// @param borderColor   the whole ring
    /// @param progressColor the elapsed part of the ring
    static void setSplashScreenTimerBorderColor(const QColor &borderColor,
                                                const QColor &progressColor);
    /// Sets the widths of the countdown rings. Default: 2 and 4.
    /// @param borderWidth   the width of the whole ring
    /// @param progressWidth how much wider the elapsed part is
    static void setSplashScreenTimerBorderWidth(double borderWidth, double progressWidth);

    /// Hides the remove-ads button on the start screen. Default: shown.
    static void setSplashScreenHiddenButtonBeforeVideo(bool hidden);
    /// Hides the remove-ads button on the end screen. Default: shown.
    static void setSplashScreenHiddenButtonAfterVideo(bool hidden);
    /// Hides the icon on both screens. Default: shown.
    static void setSplashScreenHiddenIcon(bool hidden);
    /// Hides the icon on the end screen. Default: shown.
    static void setSplashScreenHiddenIconAfterVideo(bool hidden);
    /// Hides the icon on the start screen. Default: shown.
    static void setSplashScreenHiddenIconBeforeVideo(bool hidden);
    /// Hides the background image on both screens. Default: shown.
    static void setSplashScreenHiddenBackgroundImage(bool hidden);
    /// Hides the background image on the end screen. Default: shown.
    static void setSplashScreenHiddenBackgroundImageAfterVideo(bool hidden);
    /// Hides the background image on the start screen. Default: shown.
    static void setSplashScreenHiddenBackgroundImageBeforeVideo(bool hidden);
    /// @}

    /// @name Banners
    /// A banner appears when its first picture is loaded. When that can't be loaded, or not within
    /// 15 seconds, a house banner is shown instead. A new picture follows every 15 seconds. While
    /// the banner can't be seen, because its window is hidden or minimised or its page is behind
    /// another one, no new picture is shown; the rotation goes on when the banner can be seen
    /// again.
    ///
    /// Heights and insets are in device-independent pixels; NaN and infinity are refused. A banner
    /// has the aspect ratio of its picture. It is scaled down where its place is too narrow or too
    /// low, and a bottom inset that would leave it less than half of a low place is reduced.
    ///
    /// A banner's window is the one that
    /// it is in now: a host may add a banner to a page that has no window yet, and may move the
    /// page to another window. While ads are removed, no banner is added. Main thread, except for
    /// the two functions that add a banner: any thread.
    /// @{

    /// Adds a banner at the bottom of a window's content. Ignored when the window has one already.
    /// The banner is destroyed together with the widget that it is in, so a host that replaces a
    /// QMainWindow's central widget has to add the banner again. Over native child windows, such as
    /// a game engine's view, the banner gets a native window of its own. Any thread.
    /// @param window a top-level widget, or any widget in it; in a QMainWindow the banner is in the
    ///               central widget
    static void addBannerForWindow(QWidget *window);
    static void addBannerForWindow(QWindow *window);

    /// Adds a banner at the bottom of a view. Every call adds another banner. Any thread; the host
    /// may destroy the controller or the view before the main thread does the work, and nothing is
    /// added then.
    /// @param controller the controller of the host's view
    /// @param view       the view that the banner is added to; null for the controller's own. When
    ///                   there is neither, the banner is never shown
    static void addBannerForViewController(velmora::ViewController *controller, QWidget *view);

    /// The banner in a window, of several the one added last; null, and a log line, when there is
    /// none. Owned by the framework, see BannerController.
    static velmora::BannerController *BControllFromWindow(QWidget *window);
    static velmora::BannerController *BControllFromWindow(QWindow *window);

    /// The given controller, if it is one of the banners; otherwise null, and a log line.
    static velmora::BannerController *
    BControllFromViewController(velmora::ViewController *controller);

    /// All banners that the host has added, except those whose window was destroyed. The reference
    /// is valid as long as the application object exists.
    static BannerList &BControllers();

    /// Sets whether the content of the view that a banner lies in ends above the banner. Default:
    /// false, the banner covers the content. Applies to all banners, also to later ones, on the
    /// next turn of the main loop.
    ///
    /// While a banner is shown, a bottom margin of the view is increased by the height of the
    /// banner with its shadow and bottom inset, at most by two thirds of the view's height. When
    /// the banner goes, the same is subtracted again, so that the view has its own margin and what
    /// the host has added to it meanwhile. A margin that the host sets below the addition counts as
    /// its own.
    ///
    /// This works for:
    /// - views with a layout, and QFrame and what is derived from it, such as QLabel: by
    ///   QWidget::contentsMargins();
    /// - QAbstractScrollArea, such as QTextEdit, QGraphicsView and QScrollArea: by the viewport
    ///   margins. The scroll bars keep their places. Views that set these margins themselves, such
    ///   as QTableView and QTreeView, are left alone;
    /// - the pages of a QTabWidget whose tabs are not at the bottom.
    ///
    /// With any other view, and in a QWindow that is not a widget's, nothing is reserved, and
    /// VelmoraEvents::refused() is emitted. A window that is too low for its layout and the banner
    /// grows, as it does with other content.
    static void setBannersReserveSpace(bool reserve);

    /// Sets whether Tab reaches the close button, the play button (see setMotion()) and the ad of
    /// banners, in this order. Default: true. Applies to all banners, also to later ones. Screen
    /// readers find both either way. Keys don't reach a banner in a native window of its own, which
    /// it has over native child windows and in a QWindow that is not a widget's. The QML item
    /// Banner has no such window.
    static void setBannersInTabOrder(bool areInTabOrder);

    /// Sets the height of all banners, also of later ones. A negative height counts as 0.
    /// Default: 100.
    static void setBannersHeight(double height);
    /// Sets the height of all banners to 100.
    static void setBannersLargeImage();
    /// Sets the height of all banners to 60.
    static void setBannersSmallImage();
    /// Sets the distance of all banners, also of later ones, from the bottom; positive is up.
    /// Default: 0.
    static void setBannersBottomInset(double inset);
    /// Sets the distance of all banners, also of later ones, from the centre; positive is to the
    /// right. A banner is never moved beyond the right edge. Default: 0.
    static void setBannersCenterXInset(double inset);

    /// Sets the height of one window's banner.
    static void setBannerHeight(double height, QWidget *window);
    static void setBannerHeight(double height, QWindow *window);
    /// Sets the height of one window's banner to 100.
    static void setBannerLargeImageToWindow(QWidget *window);
    static void setBannerLargeImageToWindow(QWindow *window);
    /// Sets the height of one window's banner to 60.
    static void setBannerSmallImageToWindow(QWidget *window);
    static void setBannerSmallImageToWindow(QWindow *window);
    /// Sets the distance of one window's banner from the bottom, see setBannersBottomInset().
    static void setBannerBottomInset(double inset, QWidget *window);
    static void setBannerBottomInset(double inset, QWindow *window);
    /// Sets the distance of one window's banner from the centre, see setBannersCenterXInset().
    static void setBannerCenterXInset(double inset, QWidget *window);
    static void setBannerCenterXInset(double inset, QWindow *window);

    /// Hides or shows a banner at once. A hidden banner is shown again with its next picture.
    /// @param controller a banner, or the controller of a host's view; that means the banner in the
    ///                   view's window
    static void setBannerHidden(bool hidden, velmora::ViewController *controller);
    /// @}

    /// @name Checks
    /// Each function returns true while its object, the presenter or the list of banners, does not
    /// exist. When it exists, the function writes a line to the log and returns false.
    /// @{
    static bool isInitializedSplashScreenWithLOG_WARNING();
    static bool isInitializedSplashScreenWithLOG_ERROR();
    static bool isInitializedBannerLOG_ERROR();
    /// @}

    /// Writes "VELMORA :: level :: message" to the log while debug mode is on and ads are not
    /// removed. Any thread. Beside a macro of this name it is called as the function LOG() is, see
    /// Support.h: (Velmora::LOG)(level, message).
    static void LOG(const QString &level, const QString &message);
};

#pragma pop_macro("LOG")
