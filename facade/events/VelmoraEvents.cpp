// SPDX-License-Identifier: Apache-2.0
#include <Velmora/VelmoraEvents.h>

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>

#include "EventSource.h"
#include "ProcessRoot.h"

#include <QtCore/QHash>

using velmora::EventSource;
using velmora::NotificationCenter;
using velmora::ProcessRoot;

VelmoraEvents::VelmoraEvents() {
    connect(&NotificationCenter::defaultCenter(), &NotificationCenter::posted, this,
            &VelmoraEvents::emitSignalOf);
}

VelmoraEvents::~VelmoraEvents() = default;

VelmoraEvents &VelmoraEvents::instance() {
    return ProcessRoot::get<EventSource>().events;
}

void VelmoraEvents::emitSignalOf(const QString &notification, const QVariant &object) {
    static const QHash<QString, void (VelmoraEvents::*)()> withoutObject{
        {VLMtryRemoveAds, &VelmoraEvents::removeAdsClicked},
        {VLMadsVideoDidStart, &VelmoraEvents::videoStarted},
        {VLMadsVideoDidStop, &VelmoraEvents::videoStopped},
        {VLMsplashScreenWillShow, &VelmoraEvents::splashScreenWillShow},
        {VLMsplashScreenDidShow, &VelmoraEvents::splashScreenShown},
        {VLMsplashScreenShowMoreOne, &VelmoraEvents::splashScreenShownAgain},
        {VLMsplashScreenDidClose, &VelmoraEvents::splashScreenClosed},
        {VLMadsOffNotStored, &VelmoraEvents::adsOffNotStored}};
    if (notification == VLMclickForBanner)
        Q_EMIT bannerClicked(object.toString());
    else if (notification == VLMclickForVideo)
        Q_EMIT videoClicked(object.toString());
    else if (const auto signal = withoutObject.value(notification))
        Q_EMIT(this->*signal)();
}
