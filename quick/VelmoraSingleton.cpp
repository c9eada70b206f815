// SPDX-License-Identifier: Apache-2.0
#include "VelmoraSingleton.h"

#include "WidgetApplication.h"

#include <Velmora/Velmora.h>

#include <QtQml/QQmlFile>

namespace velmora {

namespace {

QImage imageAt(const QUrl &address) {
    return QImage(QQmlFile::urlToLocalFileOrQrc(address));
}

} // namespace

VelmoraSingleton::VelmoraSingleton(QObject *parent) : QObject(parent) {
    using Events = VelmoraEvents;
    using Self = VelmoraSingleton;
    const Events *events = &Events::instance();
    connect(events, &Events::removeAdsClicked, this, &Self::removeAdsClicked);
    connect(events, &Events::bannerClicked, this, &Self::bannerClicked);
    connect(events, &Events::videoClicked, this, &Self::videoClicked);
    connect(events, &Events::videoStarted, this, &Self::videoStarted);
    connect(events, &Events::videoStopped, this, &Self::videoStopped);
    connect(events, &Events::splashScreenWillShow, this, &Self::splashScreenWillShow);
    connect(events, &Events::splashScreenShown, this, &Self::splashScreenShown);
    connect(events, &Events::splashScreenShownAgain, this, &Self::splashScreenShownAgain);
    connect(events, &Events::splashScreenClosed, this, &Self::splashScreenClosed);
    connect(events, &Events::adsOffNotStored, this, &Self::adsOffNotStored);
    connect(events, &Events::refused, this, &Self::refused);
    connect(events, &Events::windowBannerRectChanged, this, &Self::bannerRectChanged);
}

// Windows.

bool VelmoraSingleton::addSplashScreenToWindow(QWindow *window) {
    return WidgetApplication::exists() && Velmora::addSplashScreenToWindow(window);
}

bool VelmoraSingleton::addSplashScreenToUnityWindow(QWindow *window) {
    return WidgetApplication::exists() && Velmora::addSplashScreenToUnityWindow(window);
}

void VelmoraSingleton::removeSplashScreenFromWindow(QWindow *window) {
    Velmora::removeSplashScreenFromWindow(window);
}

void VelmoraSingleton::setSplashScreenTopInset(double inset, QWindow *window) {
    Velmora::setSplashScreenTopInset(inset, window);
}

void VelmoraSingleton::addBannerForWindow(QWindow *window) {
    if (WidgetApplication::exists())
        Velmora::addBannerForWindow(window);
}

void VelmoraSingleton::setBannerHeight(double height, QWindow *window) {
    Velmora::setBannerHeight(height, window);
}

void VelmoraSingleton::setBannerLargeImageToWindow(QWindow *window) {
    Velmora::setBannerLargeImageToWindow(window);
}

void VelmoraSingleton::setBannerSmallImageToWindow(QWindow *window) {
    Velmora::setBannerSmallImageToWindow(window);
}

void VelmoraSingleton::setBannerBottomInset(double inset, QWindow *window) {
    Velmora::setBannerBottomInset(inset, window);
}

void VelmoraSingleton::setBannerCenterXInset(double inset, QWindow *window) {
    Velmora::setBannerCenterXInset(inset, window);
}

void VelmoraSingleton::activateDebugMode() {
    Velmora::activateDebugMode();
}

bool VelmoraSingleton::isDebugModeActivate() const {
    return Velmora::isDebugModeActivate();
}

void VelmoraSingleton::setARCToWindows(bool on) {
    Velmora::setARCToWindows(on);
}

bool VelmoraSingleton::isARCActivate() const {
    return Velmora::isARCActivate();
}

void VelmoraSingleton::setMotion(Motion motion) {
    Velmora::setMotion(velmora::Motion(motion));
}

bool VelmoraSingleton::isADSRemoved() const {
    return Velmora::isADSRemoved();
}

void VelmoraSingleton::resetAds() {
    Velmora::resetAds();
}

void VelmoraSingleton::removeAdsNow() {
    Velmora::removeAdsNow();
}

// Splash screens.

void VelmoraSingleton::show() {
    Velmora::show();
}

void VelmoraSingleton::forceShow() {
    Velmora::forceShow();
}

void VelmoraSingleton::showWithouSplash() {
    Velmora::showWithouSplash();
}

void VelmoraSingleton::refreshWaitAgain() {
    Velmora::refreshWaitAgain();
}

bool VelmoraSingleton::isShowSplashScreen() const {
    return Velmora::isShowSplashScreen();
}

bool VelmoraSingleton::isADSReady() const {
    return Velmora::isADSReady();
}

qint64 VelmoraSingleton::splashScreenStartCount() const {
    return Velmora::splashScreenStartCount();
}

void VelmoraSingleton::setDefaultVideoWithURL(const QUrl &videoURL, const QUrl &linkURL) {
    Velmora::setDefaultVideoWithURL(videoURL, linkURL);
}

void VelmoraSingleton::setDefaultVideoURL(const QUrl &videoURL, const QString &appID) {
    Velmora::setDefaultVideoURL(videoURL, appID);
}

void VelmoraSingleton::setDefaultVideoName(const QString &fileName, const QString &appID) {
    Velmora::setDefaultVideoName(fileName, appID);
}

QUrl VelmoraSingleton::urlFromAppID(const QString &appID) const {
    return Velmora::urlFromAppID(appID);
}

void VelmoraSingleton::setSplashScreenWaitingVideoTimeSeconds(qint64 seconds) {
    Velmora::setSplashScreenWaitingVideoTimeSeconds(seconds);
}

void VelmoraSingleton::setSplashScreenLoadTime(qint64 seconds) {
    Velmora::setSplashScreenLoadTime(seconds);
}

void VelmoraSingleton::setSplashScreenDelay(double seconds) {
    Velmora::setSplashScreenDelay(seconds);
}

void VelmoraSingleton::setSplashScreenMuted(bool muted) {
    Velmora::setSplashScreenMuted(muted);
}

void VelmoraSingleton::setSplashScreenSkippedWhenEmpty(bool skipped) {
    Velmora::setSplashScreenSkippedWhenEmpty(skipped);
}

// Appearance of splash screens.

void VelmoraSingleton::setSplashScreenAppearance(Appearance appearance) {
    Velmora::setSplashScreenAppearance(velmora::Appearance(appearance));
}

void VelmoraSingleton::setSplashScreenTopInset(double inset) {
    Velmora::setSplashScreenTopInset(inset);
}

void VelmoraSingleton::setSplashScreenBackgroundColor(const QColor &color) {
    Velmora::setSplashScreenBackgroundColor(color);
}

void VelmoraSingleton::setSplashScreenBackgroundImage(const QUrl &image) {
    Velmora::setSplashScreenBackgroundImage(imageAt(image));
}

void VelmoraSingleton::setSplashScreenBackgroundImageScaling(uint scaling) {
    Velmora::setSplashScreenBackgroundImageScaling(scaling);
}

void VelmoraSingleton::setSplashScreenIcon(const QUrl &icon) {
    Velmora::setSplashScreenIcon(imageAt(icon));
}

void VelmoraSingleton::setSplashScreenTextColor(const QColor &color) {
    Velmora::setSplashScreenTextColor(color);
}

void VelmoraSingleton::setSplashScreenTimerTextColor(const QColor &color) {
    Velmora::setSplashScreenTimerTextColor(color);
}

void VelmoraSingleton::setSplashScreenTimerBackgroundColor(const QColor &color) {
    Velmora::setSplashScreenTimerBackgroundColor(color);
}

void VelmoraSingleton::setSplashScreenTimerBorderColor(const QColor &borderColor,
                                                       const QColor &progressColor) {
    Velmora::setSplashScreenTimerBorderColor(borderColor, progressColor);
}

void VelmoraSingleton::setSplashScreenTimerBorderWidth(double borderWidth, double progressWidth) {
    Velmora::setSplashScreenTimerBorderWidth(borderWidth, progressWidth);
}

void VelmoraSingleton::setSplashScreenHiddenButtonBeforeVideo(bool hidden) {
    Velmora::setSplashScreenHiddenButtonBeforeVideo(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenButtonAfterVideo(bool hidden) {
    Velmora::setSplashScreenHiddenButtonAfterVideo(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenIcon(bool hidden) {
    Velmora::setSplashScreenHiddenIcon(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenIconAfterVideo(bool hidden) {
    Velmora::setSplashScreenHiddenIconAfterVideo(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenIconBeforeVideo(bool hidden) {
    Velmora::setSplashScreenHiddenIconBeforeVideo(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenBackgroundImage(bool hidden) {
    Velmora::setSplashScreenHiddenBackgroundImage(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenBackgroundImageAfterVideo(bool hidden) {
    Velmora::setSplashScreenHiddenBackgroundImageAfterVideo(hidden);
}

void VelmoraSingleton::setSplashScreenHiddenBackgroundImageBeforeVideo(bool hidden) {
    Velmora::setSplashScreenHiddenBackgroundImageBeforeVideo(hidden);
}

// Banners.

void VelmoraSingleton::setBannersInTabOrder(bool areInTabOrder) {
    Velmora::setBannersInTabOrder(areInTabOrder);
}

void VelmoraSingleton::setBannersHeight(double height) {
    Velmora::setBannersHeight(height);
}

void VelmoraSingleton::setBannersLargeImage() {
    Velmora::setBannersLargeImage();
}

void VelmoraSingleton::setBannersSmallImage() {
    Velmora::setBannersSmallImage();
}

void VelmoraSingleton::setBannersBottomInset(double inset) {
    Velmora::setBannersBottomInset(inset);
}

void VelmoraSingleton::setBannersCenterXInset(double inset) {
    Velmora::setBannersCenterXInset(inset);
}

} // namespace velmora
