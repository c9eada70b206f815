// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Velmora.h>

#include "AdBannerController.h"
#include "BannerAreas.h"
#include "FacadeState.h"
#include "MainQueue.h"
#include "ProcessRoot.h"
#include "Refusal.h"
#include "Switches.h"
#include "WindowProxy.h"

#include <cmath>

using velmora::AdBannerController;
using velmora::BannerAreas;
using velmora::BannerController;
using velmora::FacadeState;
using velmora::MainQueue;
using velmora::ProcessRoot;
using velmora::Refusal;
using velmora::Switches;
using velmora::ViewController;
using velmora::WindowProxy;

namespace {

using Reason = Refusal::Reason;
using Request = Refusal::Request;
using Setter = void (BannerController::*)(double);

bool mayAdd() {
    if (Switches::isADSRemoved()) {
        Refusal::reportAdsRemoved(Request::AddBanner);
        return false;
    }
    if (FacadeState::hasApplication())
        return true;
    Refusal::report(Request::AddBanner, Reason::NoApplication,
                    QStringLiteral("banner not added: there is no QApplication"));
    return false;
}

void refuse(Request request, Reason reason, const QString &text) {
    Velmora::LOG(QStringLiteral("ERROR"), text);
    Refusal::signal(request, reason, text);
}

void addWithDefaults(const std::shared_ptr<BannerController> &banner) {
    const FacadeState &state = FacadeState::current();
    banner->setHeight(state.bannerHeight);
    banner->setBottomInset(state.bannerBottomInset);
    banner->setCenterXInset(state.bannerCenterXInset);
    AdBannerController::of(*banner).setInTabOrder(state.areBannersInTabOrder);
    Velmora::BControllers().push_back(banner);
}

bool isFinite(double value) {
    if (std::isfinite(value))
        return true;
    refuse(Request::SetOption, Reason::InvalidValue,
           QStringLiteral("a banner's place must be a finite number"));
    return false;
}

void setForAll(double FacadeState::*defaultValue, Setter setter, double value) {
    if (ProcessRoot::hasEnded() || !isFinite(value))
        return;
    FacadeState::current().*defaultValue = value;
    if (Velmora::isInitializedBannerLOG_ERROR())
        return;
    // A copy: the change may run code of the host, which may add another banner.
    const Velmora::BannerList banners = Velmora::BControllers();
    for (const auto &banner : banners)
        (banner.get()->*setter)(value);
}

// Velmora::BControllFromWindow() has written the log line.
void signalNoBanner() {
    Refusal::signal(Request::SetOption, Reason::NotAdded,
                    QStringLiteral("the window has no banner"));
}

// Window is a QWidget or a QWindow.
template<class Window>
void setForWindow(Window *window, Setter setter, double value) {
    if (ProcessRoot::hasEnded())
        return;
    if (Velmora::isInitializedBannerLOG_ERROR()) {
        signalNoBanner();
        return;
    }
    if (!isFinite(value))
        return;
    if (BannerController *banner = Velmora::BControllFromWindow(window))
        (banner->*setter)(value);
    else
        signalNoBanner();
}

// Without a match, a log line: hosts know "Window is Empty!".
template<class Matches>
BannerController *lastMatch(Matches matches) {
    BannerController *found = nullptr;
    if (ProcessRoot::hasEnded())
        return found;
    for (const auto &banner : Velmora::BControllers()) {
        if (matches(*banner))
            found = banner.get();
    }
    if (!found)
        Velmora::LOG(QStringLiteral("ERROR"), QStringLiteral("Window is Empty!"));
    return found;
}

} // namespace

void Velmora::addBannerForWindow(QWidget *window) {
    if (!MainQueue::isMainThread()) {
        MainQueue::post([target = QPointer<QWidget>(window)] { addBannerForWindow(target); });
        return;
    }
    if (!mayAdd())
        return;
    if (!window) {
        refuse(Request::AddBanner, Reason::NoWindow,
               QStringLiteral("no window was given for a banner"));
        return;
    }
    if (BControllFromWindow(window))
        Refusal::report(Request::AddBanner, Reason::AlreadyAdded,
                        QStringLiteral("banner not added: the window has one"));
    else
        addWithDefaults(AdBannerController::addBannerToWindow(window));
}

void Velmora::addBannerForWindow(QWindow *window) {
    if (!MainQueue::isMainThread())
        MainQueue::post([target = QPointer<QWindow>(window)] { addBannerForWindow(target); });
    else if (mayAdd())
        addBannerForWindow(WindowProxy::widgetFor(window));
}

void Velmora::addBannerForViewController(ViewController *controller, QWidget *view) {
    if (!mayAdd())
        return;
    if (!controller) {
        refuse(Request::AddBanner, Reason::NoView,
               QStringLiteral("no view controller was given for a banner"));
        return;
    }
    if (!MainQueue::isMainThread()) {
        MainQueue::post([controller, lifetime = controller->lifetime(),
                         target = QPointer<QWidget>(view), given = view != nullptr] {
            if (!lifetime.expired() && (!given || target))
                addBannerForViewController(controller, target);
        });
        return;
    }
    if (!BControllFromViewController(controller))
        addWithDefaults(AdBannerController::addBannerToViewController(controller, view));
}

BannerController *Velmora::BControllFromWindow(QWidget *window) {
    const QWidget *whole = window ? window->window() : nullptr;
    return lastMatch([whole](BannerController &banner) {
        return whole && AdBannerController::of(banner).hostWindow() == whole;
    });
}

BannerController *Velmora::BControllFromWindow(QWindow *window) {
    return ProcessRoot::hasEnded() ? nullptr
                                   : BControllFromWindow(WindowProxy::existingWidgetFor(window));
}

BannerController *Velmora::BControllFromViewController(ViewController *controller) {
    return lastMatch([controller](const BannerController &banner) {
        return static_cast<const ViewController *>(&banner) == controller;
    });
}

Velmora::BannerList &Velmora::BControllers() {
    auto &list = FacadeState::current().bannerControllers;
    if (!list)
        list.emplace();
    if (!ProcessRoot::hasEnded())
        std::erase_if(*list,
                      [](const auto &banner) { return AdBannerController::of(*banner).isGone(); });
    return *list;
}

void Velmora::setBannersReserveSpace(bool reserve) {
    if (!ProcessRoot::hasEnded())
        BannerAreas::current().setReservesSpace(reserve);
}

void Velmora::setBannersInTabOrder(bool areInTabOrder) {
    if (ProcessRoot::hasEnded())
        return;
    FacadeState &state = FacadeState::current();
    state.areBannersInTabOrder = areInTabOrder;
    if (!state.bannerControllers)
        return;
    // A copy, as in setForAll(): a banner that loses the focus runs code of the host.
    const BannerList banners = BControllers();
    for (const auto &banner : banners)
        AdBannerController::of(*banner).setInTabOrder(areInTabOrder);
}

void Velmora::setBannersHeight(double height) {
    setForAll(&FacadeState::bannerHeight, &BannerController::setHeight, height);
}

void Velmora::setBannersLargeImage() {
    setBannersHeight(FacadeState::LargeBannerHeight);
}

void Velmora::setBannersSmallImage() {
    setBannersHeight(FacadeState::SmallBannerHeight);
}

void Velmora::setBannersBottomInset(double inset) {
    setForAll(&FacadeState::bannerBottomInset, &BannerController::setBottomInset, inset);
}

void Velmora::setBannersCenterXInset(double inset) {
    setForAll(&FacadeState::bannerCenterXInset, &BannerController::setCenterXInset, inset);
}

void Velmora::setBannerHeight(double height, QWidget *window) {
    setForWindow(window, &BannerController::setHeight, height);
}

void Velmora::setBannerLargeImageToWindow(QWidget *window) {
    setBannerHeight(FacadeState::LargeBannerHeight, window);
}

void Velmora::setBannerSmallImageToWindow(QWidget *window) {
    setBannerHeight(FacadeState::SmallBannerHeight, window);
}

void Velmora::setBannerBottomInset(double inset, QWidget *window) {
    setForWindow(window, &BannerController::setBottomInset, inset);
}

void Velmora::setBannerCenterXInset(double inset, QWidget *window) {
    setForWindow(window, &BannerController::setCenterXInset, inset);
}

void Velmora::setBannerHeight(double height, QWindow *window) {
    setForWindow(window, &BannerController::setHeight, height);
}

void Velmora::setBannerLargeImageToWindow(QWindow *window) {
    setBannerHeight(FacadeState::LargeBannerHeight, window);
}

void Velmora::setBannerSmallImageToWindow(QWindow *window) {
    setBannerHeight(FacadeState::SmallBannerHeight, window);
}

void Velmora::setBannerBottomInset(double inset, QWindow *window) {
    setForWindow(window, &BannerController::setBottomInset, inset);
}

void Velmora::setBannerCenterXInset(double inset, QWindow *window) {
    setForWindow(window, &BannerController::setCenterXInset, inset);
}

void Velmora::setBannerHidden(bool hidden, ViewController *controller) {
    if (!controller || ProcessRoot::hasEnded())
        return;
    BannerController *banner = BControllFromViewController(controller);
    if (!banner)
        banner = BControllFromWindow(controller->viewWindow());
    if (banner)
        banner->setBannerHidden(hidden);
    else
        signalNoBanner();
}
