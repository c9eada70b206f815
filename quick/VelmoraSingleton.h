// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Appearance.h>
#include <Velmora/Motion.h>
#include <Velmora/VelmoraEvents.h>

#include <QtCore/QObject>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QWindow>
#include <QtQml/qqmlregistration.h>

namespace velmora {

/// The QML singleton Velmora: the functions of the class Velmora, with the same names, defaults and
/// refusals, and the signals of VelmoraEvents. See there what they do. An engine has one object.
///
/// Windows are those of Qt Quick (Window, ApplicationWindow). Images are given by the address of a
/// local file or a resource; when it can't be read, the image is refused. Without a QApplication no
/// window gets a splash screen or a banner.
class VelmoraSingleton : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Velmora)
    QML_SINGLETON

public:
    /// The values of velmora::Appearance.
    enum Appearance {
        Light = int(velmora::Appearance::Light),
        Dark = int(velmora::Appearance::Dark),
        FollowsHost = int(velmora::Appearance::FollowsHost),
    };
    Q_ENUM(Appearance)
    enum Motion {
        FollowsDesktop = int(velmora::Motion::FollowsDesktop),
        Full = int(velmora::Motion::Full),
        Reduced = int(velmora::Motion::Reduced),
    };
    Q_ENUM(Motion)

    explicit VelmoraSingleton(QObject *parent = nullptr);

    // Switches.
    Q_INVOKABLE void activateDebugMode();
    Q_INVOKABLE bool isDebugModeActivate() const;
    Q_INVOKABLE void setARCToWindows(bool on);
    Q_INVOKABLE bool isARCActivate() const;
    Q_INVOKABLE void setMotion(velmora::VelmoraSingleton::Motion motion);
    Q_INVOKABLE bool isADSRemoved() const;
    Q_INVOKABLE void resetAds();
    Q_INVOKABLE void removeAdsNow();

    // Splash screens.
    Q_INVOKABLE bool addSplashScreenToWindow(QWindow *window);
    Q_INVOKABLE bool addSplashScreenToUnityWindow(QWindow *window);
    Q_INVOKABLE void removeSplashScreenFromWindow(QWindow *window);
    Q_INVOKABLE void show();
    Q_INVOKABLE void forceShow();
    Q_INVOKABLE void showWithouSplash();
    Q_INVOKABLE void refreshWaitAgain();
    Q_INVOKABLE bool isShowSplashScreen() const;
    Q_INVOKABLE bool isADSReady() const;
    Q_INVOKABLE qint64 splashScreenStartCount() const;
    Q_INVOKABLE void setDefaultVideoWithURL(const QUrl &videoURL, const QUrl &linkURL);
    Q_INVOKABLE void setDefaultVideoURL(const QUrl &videoURL, const QString &appID);
    Q_INVOKABLE void setDefaultVideoName(const QString &fileName, const QString &appID);
    Q_INVOKABLE QUrl urlFromAppID(const QString &appID) const;
    Q_INVOKABLE void setSplashScreenWaitingVideoTimeSeconds(qint64 seconds);
    Q_INVOKABLE void setSplashScreenLoadTime(qint64 seconds);
    Q_INVOKABLE void setSplashScreenDelay(double seconds);
    Q_INVOKABLE void setSplashScreenMuted(bool muted);
    Q_INVOKABLE void setSplashScreenSkippedWhenEmpty(bool skipped);

    // Appearance of splash screens.
    Q_INVOKABLE void setSplashScreenAppearance(velmora::VelmoraSingleton::Appearance appearance);
    Q_INVOKABLE void setSplashScreenTopInset(double inset);
    Q_INVOKABLE void setSplashScreenTopInset(double inset, QWindow *window);
    Q_INVOKABLE void setSplashScreenBackgroundColor(const QColor &color);
    Q_INVOKABLE void setSplashScreenBackgroundImage(const QUrl &image);
    Q_INVOKABLE void setSplashScreenBackgroundImageScaling(uint scaling);
    Q_INVOKABLE void setSplashScreenIcon(const QUrl &icon);
    Q_INVOKABLE void setSplashScreenTextColor(const QColor &color);
    Q_INVOKABLE void setSplashScreenTimerTextColor(const QColor &color);
    Q_INVOKABLE void setSplashScreenTimerBackgroundColor(const QColor &color);
    Q_INVOKABLE void setSplashScreenTimerBorderColor(const QColor &borderColor,
                                                     const QColor &progressColor);
    Q_INVOKABLE void setSplashScreenTimerBorderWidth(double borderWidth, double progressWidth);
    Q_INVOKABLE void setSplashScreenHiddenButtonBeforeVideo(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenButtonAfterVideo(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenIcon(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenIconAfterVideo(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenIconBeforeVideo(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenBackgroundImage(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenBackgroundImageAfterVideo(bool hidden);
    Q_INVOKABLE void setSplashScreenHiddenBackgroundImageBeforeVideo(bool hidden);

    // Banners. Those without a window apply to the items Banner as well.
    Q_INVOKABLE void addBannerForWindow(QWindow *window);
    Q_INVOKABLE void setBannersInTabOrder(bool areInTabOrder);
    Q_INVOKABLE void setBannersHeight(double height);
    Q_INVOKABLE void setBannersLargeImage();
    Q_INVOKABLE void setBannersSmallImage();
    Q_INVOKABLE void setBannersBottomInset(double inset);
    Q_INVOKABLE void setBannersCenterXInset(double inset);
    Q_INVOKABLE void setBannerHeight(double height, QWindow *window);
    Q_INVOKABLE void setBannerLargeImageToWindow(QWindow *window);
    Q_INVOKABLE void setBannerSmallImageToWindow(QWindow *window);
    Q_INVOKABLE void setBannerBottomInset(double inset, QWindow *window);
    Q_INVOKABLE void setBannerCenterXInset(double inset, QWindow *window);

Q_SIGNALS:
    void removeAdsClicked();
    void bannerClicked(const QString &adName);
    void videoClicked(const QString &applicationName);
    void videoStarted();
    void videoStopped();
    void splashScreenWillShow();
    void splashScreenShown();
    void splashScreenShownAgain();
    void splashScreenClosed();
    void adsOffNotStored();
    /// VelmoraEvents::windowBannerRectChanged(), for a banner of addBannerForWindow().
    void bannerRectChanged(QWindow *window, const QRect &rect);
    void refused(VelmoraEvents::Request request, VelmoraEvents::Reason reason, const QString &text);
};

} // namespace velmora
