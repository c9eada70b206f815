#pragma once

#include <Velmora/Export.h>
#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/Support.h>
#include <Velmora/ViewController.h>

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

namespace velmora {
class BannerController;
}

/// The one class through which a host drives the framework. It has no instances; its state
/// lasts for the process, but for the ads-off switch, which lasts until resetAds().
///
/// All operations are called on the main thread, after the application object (QApplication)
/// was made; those that show or remove advertising move themselves there when called on another
/// thread. None throws or reports an error: what is refused does nothing, and says why in the
/// system log while debug mode is on. Windows are never owned: the host may destroy one at any
/// time.
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

    /// Removes every banner now and shows no advertising any more, in this and all later runs
    /// of the host. Any thread; on another than the main one the work is done a little later.
    static void removeAdsNow();
    /// @}

    /// @name Banners
    /// Heights and insets are in device-independent pixels. A banner keeps its picture's
    /// aspect; where it would be wider than its window it is shown smaller. Banners are not
    /// added while ads are removed.
    /// @{

    /// Puts a banner at the bottom of a window's content. A window gets one at most; a second
    /// call does nothing. The banner appears when its first picture is there. It goes with the
    /// widget it lies in: a host that replaces a window's central widget adds the banner anew.
    /// Content made of native child windows (a game engine's view) would hide it.
    /// @param window a top-level widget; in a main window the banner lies in the central widget
    static void addBannerForWindow(QWidget *window);

    /// Puts a banner at the bottom of a view, each call a further one.
    /// @param controller the controller of the host's view; on another thread than the main one,
    ///                   nothing happens when it is gone before the main thread has got to it
    /// @param view       the view to put the banner into; null for the controller's own
    static void addBannerForViewController(velmora::ViewController *controller, QWidget *view);

    /// The banner added last to a window, or null (and a log line). Owned by the framework.
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
