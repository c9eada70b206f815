// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>

/// @file
/// The names of the notifications that the framework posts to
/// velmora::NotificationCenter::defaultCenter(), always on the main thread. VelmoraEvents has a Qt
/// signal for each of those about advertising. A notification has an object only where its comment
/// names one. The values are part of the interface, with their unusual spellings.

/// The user clicked a banner's close button or a remove-ads button. Nothing is removed yet: the
/// host offers its purchase, and after that calls Velmora::removeAdsNow().
extern VELMORA_EXPORT const QString VLMtryRemoveAds;

/// The user clicked a banner, and the desktop was asked to open its link. Object (QString): the
/// ad's name, "Web Banner" when the ad has none, or a house banner's identifier.
extern VELMORA_EXPORT const QString VLMclickForBanner;

/// The user clicked the video, and the desktop was asked to open its link. Object (QString): the
/// advertised application's name; no object when the name is not known.
extern VELMORA_EXPORT const QString VLMclickForVideo;

/// The splash screens show their video. Posted also when there is no video to play.
extern VELMORA_EXPORT const QString VLMadsVideoDidStart;

/// The video of the splash screens has ended.
extern VELMORA_EXPORT const QString VLMadsVideoDidStop;

/// Posted after VLMsplashScreenDidShow, from the second time on that splash screens are shown in a
/// process.
extern VELMORA_EXPORT const QString VLMsplashScreenShowMoreOne;

/// The splash screens will be shown now.
extern VELMORA_EXPORT const QString VLMsplashScreenWillShow;

/// All registered windows show their splash screens.
extern VELMORA_EXPORT const QString VLMsplashScreenDidShow;

/// The splash screens were closed: by the close button, or because none of their windows existed
/// for ten seconds.
extern VELMORA_EXPORT const QString VLMsplashScreenDidClose;

/// Velmora::removeAdsNow() could not store that ads are off: they will be back in the next run. The
/// host may call it again later, and keep its own record of the purchase.
extern VELMORA_EXPORT const QString VLMadsOffNotStored;

/// The flags of a started reachability monitor have changed. Object
/// (std::shared_ptr<velmora::Reachability>): the monitor. QVariant::toString() of the object gives
/// the monitor's description().
extern VELMORA_EXPORT const QString kReachabilityChangedNotification;

/// The build's project version, 1.0. The framework's release is VelmoraVersion.
extern VELMORA_EXPORT const double VelmoraVersionNumber;
/// The build's version text, which the tool what(1) finds in the library file.
extern VELMORA_EXPORT const char VelmoraVersionString[];
/// The framework's release, "3.5.0".
extern VELMORA_EXPORT const QString VelmoraVersion;
