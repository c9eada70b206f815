// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>

/// @file
/// The names of the notifications that the framework posts to
/// velmora::NotificationCenter::defaultCenter(), always on the main thread. The values are part
/// of the interface, unusual spellings included. Of the com.tamsel names only
/// VLMclickForBanner and VLMclickForVideo carry an object.

/// The user clicked a banner's close button or a remove-ads button. The framework removes
/// nothing by itself: the host offers its purchase and then calls Velmora::removeAdsNow().
extern VELMORA_EXPORT const QString VLMtryRemoveAds;

/// The user clicked a banner, and its link was handed to the system. Object (QString): the ad's
/// name, "Web Banner" when the ad has none, or a house banner's identifier.
extern VELMORA_EXPORT const QString VLMclickForBanner;

/// The user clicked the video, and its link was handed to the system. Object (QString): the
/// advertised application's name; none when it is not known.
extern VELMORA_EXPORT const QString VLMclickForVideo;

/// The splash screen has entered its video stage, whether or not a video could be played.
extern VELMORA_EXPORT const QString VLMadsVideoDidStart;

/// The video has ended.
extern VELMORA_EXPORT const QString VLMadsVideoDidStop;

/// Follows VLMsplashScreenDidShow from the second splash screen of the process on.
extern VELMORA_EXPORT const QString VLMsplashScreenShowMoreOne;

/// A splash screen has passed all its checks and is about to be shown.
extern VELMORA_EXPORT const QString VLMsplashScreenWillShow;

/// Every registered window shows its splash screen.
extern VELMORA_EXPORT const QString VLMsplashScreenDidShow;

/// The user closed the splash screen with its close button.
extern VELMORA_EXPORT const QString VLMsplashScreenDidClose;

/// A started reachability monitor saw its target's flags change. The object's toString() is
/// the monitor's description.
extern VELMORA_EXPORT const QString kReachabilityChangedNotification;

/// The project version of the build, 1.0.
extern VELMORA_EXPORT const double VelmoraVersionNumber;
/// The build's what-string.
extern VELMORA_EXPORT const char VelmoraVersionString[];
/// The framework's release, "3.5.0".
extern VELMORA_EXPORT const QString VelmoraVersion;
