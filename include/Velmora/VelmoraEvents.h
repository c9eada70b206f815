// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QObject>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace velmora {
struct EventSource;
}

/// The framework's signals: what the user did, how the splash screens proceed, where a banner lies,
/// and why something that the host asked for did not happen. The process has one object. Main
/// thread only.
///
///     QObject::connect(&VelmoraEvents::instance(), &VelmoraEvents::removeAdsClicked, this,
///                      &Shop::open);
///
/// A slot may call any function of Velmora, destroy windows and views, and run an event loop of its
/// own.
///
/// The first group of signals has a signal for each notification of Notifications.h that concerns
/// advertising. NotificationCenter::post() emits it after it has called the handlers, before it
/// returns, so both arrive in the same order. The other signals, those of a banner's rectangle and
/// refused(), are emitted on a later turn of the main loop, never from inside a call of the host.
/// Nothing is computed for them before the first call of instance().
class VELMORA_EXPORT VelmoraEvents : public QObject {
    Q_OBJECT

public:
    /// What the host asked for. Later releases may add values.
    enum class Request {
        ShowSplashScreen, ///< Velmora::show(), forceShow() or showWithouSplash()
        AddSplashScreen,  ///< Velmora::addSplashScreenToWindow() or addSplashScreenToUnityWindow()
        RemoveSplashScreen, ///< Velmora::removeSplashScreenFromWindow()
        RestartWait,        ///< Velmora::refreshWaitAgain()
        PlayVideo,          ///< the video of a splash screen that is shown
        AddBanner,          ///< Velmora::addBannerForWindow() or addBannerForViewController()
        ShowBanner,         ///< the next picture of a banner that was added
        ReserveSpace,       ///< Velmora::setBannersReserveSpace(), for one view
        SetOption,          ///< a function of Velmora whose name starts with "set"
    };
    Q_ENUM(Request)

    /// Why it does not happen. Later releases may add values.
    enum class Reason {
        AdsRemoved,         ///< ads are removed, see Velmora::removeAdsNow()
        NoApplication,      ///< there is no QApplication
        WrongThread,        ///< the function was not called on the main thread
        NoWindow,           ///< null was given, or the window has been destroyed
        NoView,             ///< neither the controller nor the call has a view for the banner
        AlreadyAdded,       ///< the window has a banner, or is registered for splash screens
        NotAdded,           ///< the window has no banner, or is not registered
        AlreadyShown,       ///< the splash screens are on screen
        NotReady,           ///< Velmora::isADSReady() is false: the waiting period is not over
        NoRegisteredWindow, ///< no window is registered for splash screens
        /// No registered window is the active one. After show() the splash screens appear as soon
        /// as one is.
        NoKeyWindow,
        NoVideo,      ///< neither the ad server nor the host has given a video
        NoPicture,    ///< the picture can't be used; a house banner is shown instead if possible
        NoLayout,     ///< the view has neither a layout nor a frame that contents margins move
        InvalidValue, ///< NaN, infinity, an invalid colour or a null image
        /// The user is in the middle of something: see Velmora::show(). The splash screens appear
        /// when that is finished.
        UserIsBusy,
    };
    Q_ENUM(Reason)

    /// The process's object, which the first call makes. Owned by the framework, and valid as long
    /// as the application object.
    static VelmoraEvents &instance();

    ~VelmoraEvents() override;

Q_SIGNALS:
    /// VLMtryRemoveAds: the user clicked a banner's close button or a remove-ads button. Nothing is
    /// removed yet: the host offers its purchase, and after that calls Velmora::removeAdsNow().
    void removeAdsClicked();

    /// VLMclickForBanner: the user clicked a banner, and the desktop was asked to open its link.
    /// @param adName as BannerController::selectBanner()
    void bannerClicked(const QString &adName);

    /// VLMclickForVideo: the user clicked the video, and the desktop was asked to open its link.
    /// @param applicationName of the advertised application; null when it is not known
    void videoClicked(const QString &applicationName);

    /// VLMadsVideoDidStart: the splash screens show their video. Emitted also when there is none to
    /// play; refused() then tells.
    void videoStarted();

    /// VLMadsVideoDidStop: the video of the splash screens has ended.
    void videoStopped();

    /// VLMsplashScreenWillShow: the splash screens will be shown now.
    void splashScreenWillShow();

    /// VLMsplashScreenDidShow: all registered windows show their splash screens.
    void splashScreenShown();

    /// VLMsplashScreenShowMoreOne: follows splashScreenShown(), from the second time on in a
    /// process.
    void splashScreenShownAgain();

    /// VLMsplashScreenDidClose: the splash screens were closed: by the close button, or because
    /// none of their windows existed for ten seconds.
    void splashScreenClosed();

    /// VLMadsOffNotStored: Velmora::removeAdsNow() could not store that ads are off: they will be
    /// back in the next run.
    void adsOffNotStored();

    /// The part of a window that its banner covers has changed: the banner was shown, hidden,
    /// resized, moved or removed, or has a picture of another shape. Whether the window itself is
    /// shown or minimised does not count. Not emitted for a window that is being destroyed, nor
    /// twice in a row with the same rectangle.
    /// @param window the banner's window
    /// @param rect   the banner with its shadow, in the window's coordinates and device-independent
    ///               pixels; empty when no banner is shown. Of several visible banners in a window,
    ///               the one that was added last
    void bannerRectChanged(QWidget *window, const QRect &rect);

    /// bannerRectChanged() for a QWindow that is not a widget's, such as a QQuickView.
    void windowBannerRectChanged(QWindow *window, const QRect &rect);

    /// Something that the host asked for does not happen, or something that it may rely on. The
    /// host goes on without it; nothing has to be undone.
    /// @param text the reason in English, for the host's developer
    void refused(VelmoraEvents::Request request, VelmoraEvents::Reason reason, const QString &text);

private:
    friend struct velmora::EventSource;
    VelmoraEvents();
    void emitSignalOf(const QString &notification, const QVariant &object);
};
