// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Notifications.h>

const QString VLMtryRemoveAds = QStringLiteral("com.tamsel.tryremoveads");
const QString VLMclickForBanner = QStringLiteral("com.tamsel.clickforbanner");
const QString VLMclickForVideo = QStringLiteral("com.tamsel.clickforvideo");
const QString VLMadsVideoDidStart = QStringLiteral("com.tamsel.videostart");
const QString VLMadsVideoDidStop = QStringLiteral("com.tamsel.videostop");
const QString VLMsplashScreenShowMoreOne = QStringLiteral("com.tamsel.splashcreensecondstart");
const QString VLMsplashScreenWillShow = QStringLiteral("com.tamsel.splashcreenwillshow");
const QString VLMsplashScreenDidShow = QStringLiteral("com.tamsel.splashcreendidshow");
const QString VLMsplashScreenDidClose = QStringLiteral("com.tamsel.splashscreendidclose");

const QString VLMadsOffNotStored = QStringLiteral("com.tamsel.adsoffnotstored");

const QString kReachabilityChangedNotification = QStringLiteral("kReachabilityChangedNotification");

const double VelmoraVersionNumber = 1.0;
const char VelmoraVersionString[] = "@(#)PROGRAM:Velmora  PROJECT:Velmora-1\n";
const QString VelmoraVersion = QStringLiteral(VELMORA_RELEASE);
