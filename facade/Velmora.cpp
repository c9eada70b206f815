// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Velmora.h>

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>

#include "AdBannerController.h"
#include "AdsDownloader.h"
#include "FacadeState.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "ReducedMotion.h"
#include "SharedUrlSession.h"
#include "SplashScreenPresenter.h"
#include "Switches.h"

#include <utility>

using velmora::AdBannerController;
using velmora::AdsDownloader;
using velmora::FacadeState;
using velmora::MainQueue;
using velmora::NotificationCenter;
using velmora::ProcessRoot;
using velmora::ReducedMotion;
using velmora::SharedUrlSession;
using velmora::Switches;

namespace {

void removeBannersAndSplashScreens() {
    // Not SSPresenter(), which makes a presenter when there is none.
    if (const auto presenter = FacadeState::current().presenter)
        presenter->removeAllSplashScreens();
    // The list is emptied first: removing a banner may run code of the host, which may call
    // removeAdsNow() again or add a banner.
    const Velmora::BannerList banners = std::exchange(Velmora::BControllers(), {});
    for (const auto &banner : banners)
        AdBannerController::of(*banner).removeADS();
    MainQueue::post(&AdsDownloader::forgetGoneDelegates);
}

} // namespace

void Velmora::activateDebugMode() {
    Switches::activateDebugMode();
}

bool Velmora::isDebugModeActivate() {
    return Switches::isDebugModeActivate();
}

void Velmora::setARCToWindows(bool on) {
    Switches::setARCToWindows(on);
}

bool Velmora::isARCActivate() {
    return Switches::isARCActivate();
}

void Velmora::setMotion(Motion motion) {
    if (!ProcessRoot::hasEnded())
        ReducedMotion::current().setMotion(motion);
}

bool Velmora::isADSRemoved() {
    return Switches::isADSRemoved();
}

void Velmora::resetAds() {
    Switches::setADSRemoved(false);
}

void Velmora::removeAdsNow() {
    if (ProcessRoot::hasEnded())
        return;
    const bool isStored = Switches::setADSRemoved(true);
    SharedUrlSession::cancelAll();
    MainQueue::runOrPost([isStored] {
        removeBannersAndSplashScreens();
        if (!isStored)
            NotificationCenter::defaultCenter().post(VLMadsOffNotStored);
    });
}

bool Velmora::isInitializedBannerLOG_ERROR() {
    if (!FacadeState::current().bannerControllers)
        return true;
    // The message says the opposite of what was found; it stays as hosts know it.
    LOG(QStringLiteral("ERROR"), QStringLiteral("Banner controller not initialized!"));
    return false;
}

void Velmora::LOG(const QString &level, const QString &message) {
    ::LOG(QStringLiteral("VELMORA :: %1 :: %2").arg(level, message));
}
