// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"

#include "AdKeys.h"
#include "AdsEventLogger.h"
#include "Animator.h"
#include "BannerAreas.h"
#include "BannerNativeWindow.h"
#include "BannerShadowView.h"
#include "BannerWatch.h"
#include "ClickGuard.h"
#include "FirstPicture.h"
#include "Log.h"
#include "MainQueue.h"
#include "RandomSource.h"
#include "Refusal.h"
#include "SplitterGuard.h"
#include "Switches.h"
#include "Window.h"
#include "WindowProxy.h"
#include "Workspace.h"

#include <Velmora/NotificationCenter.h>
#include <Velmora/Notifications.h>
#include <Velmora/StandardNames.h>
#include <Velmora/Support.h>

#include <QtCore/QFileInfo>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>

#include <utility>

namespace velmora {

AdBannerController::AdBannerController() = default;

AdBannerController::~AdBannerController() {
    QWidget *own = viewIfLoaded();
    // The view of a removed banner is fading out and is destroyed after that.
    if (!own || m_removed)
        return;
    if (own->parentWidget())
        own->deleteLater();
    else
        delete own;
}

// Loading.

QWidget *AdBannerController::loadView() {
    QWidget *root = m_interface.load();
    if (!root)
        return nullptr;
    m_viewWasLoaded = true;
    m_placement.loadConstraints(root);
    return root;
}

void AdBannerController::viewDidLoad() {
    // Shown with the first banner.
    Animator::setHiddenNow(view(), true);
    initBanners();
    hideIfAdsAreRemoved();
}

void AdBannerController::initBanners() {
    m_rotation.setTurnHandler(weak_from_this(), [this] { swapBanners(); });
    m_downloader = AdsDownloader::sharedInstance();
    m_downloader->addDelegate(shared_from_this());
    // The downloader tells its delegates once in a run that the ad table is ready. A banner that
    // comes later is not told by it.
    const bool isLate = m_downloader->hasToldDelegates();
    FirstPicture::expect();
    m_downloader->startUpdateAllAds();
    if (isLate)
        endDownloadСonfiguration();
    // The first call loads the events that an earlier run could not deliver.
    AdsEventLogger::sharedInstance();
    m_interface.prepare(view());
    connectControls();
    m_standardBanners = StandardNames::standardBanners();
    // A host never advertises itself.
    m_standardBanners.remove(
        VLMMainAppBundle().objectForInfoDictionaryKey(MetrivoAppId).toString());
}

void AdBannerController::connectControls() {
    const auto weak = weak_from_this();
    if (BannerImageView *image = bannerImage()) {
        QObject::connect(image, &BannerImageView::wentDown, image, [weak] {
            if (const auto self = weak.lock())
                self->m_pressed = self->m_shown;
        });
        QObject::connect(image, &BannerImageView::failed, image, [weak] {
            const auto self = weak.lock();
            if (!self || self->m_shown.file.isEmpty())
                return;
            MediaCache::discard(self->m_shown.file);
            self->refusePicture();
            self->displayHouseBanner();
        });
        QObject::connect(image, &QAbstractButton::clicked, image, [weak] {
            if (const auto self = weak.lock())
                self->open(self->m_pressed);
        });
    }
    if (CloseButtonCell *button = closeButton()) {
        QObject::connect(button, &QAbstractButton::clicked, button, [weak] {
            if (const auto self = weak.lock())
                self->closeClicked();
        });
    }
}

bool AdBannerController::hideIfAdsAreRemoved() {
    if (!Switches::isADSRemoved())
        return false;
    m_rotation.cancelTurn();
    if (QWidget *own = view())
        Animator::setHiddenNow(own, true);
    return true;
}

// The place.

std::shared_ptr<AdBannerController> AdBannerController::addBannerToWindow(QWidget *window) {
    const std::shared_ptr<AdBannerController> banner(new AdBannerController);
    banner->setWindow(window);
    return banner;
}

std::shared_ptr<AdBannerController>
AdBannerController::addBannerToViewController(ViewController *controller, QWidget *view) {
    const std::shared_ptr<AdBannerController> banner(new AdBannerController);
    banner->setViewController(controller, view);
    return banner;
}

void AdBannerController::setWindow(QWidget *window) {
    if (!MainQueue::isMainThread()) {
        MainQueue::post([self = shared_from_this(), target = QPointer<QWidget>(window)] {
            self->setWindow(target);
        });
        return;
    }
    m_window = window ? window->window() : nullptr;
    if (hideIfAdsAreRemoved() || !m_window)
        return;
    const Window *companion = Window::of(m_window);
    ViewController *content = companion->contentViewController();
    if (content && content->view()) {
        content->addChildViewController(this);
        attachTo(content->view());
    } else {
        m_isInCentralWidget = companion->contentView() != m_window;
        attachTo(companion->contentView());
    }
}

void AdBannerController::setViewController(ViewController *controller, QWidget *view) {
    if (!controller)
        return;
    if (!MainQueue::isMainThread()) {
        MainQueue::post([self = shared_from_this(), controller, lifetime = controller->lifetime(),
                         target = QPointer<QWidget>(view), given = view != nullptr] {
            if (!lifetime.expired() && (!given || target))
                self->setViewController(controller, target);
        });
        return;
    }
    m_window = controller->viewWindow();
    if (hideIfAdsAreRemoved())
        return;
    const Window *companion = Window::of(m_window);
    if (companion && companion->contentViewController())
        controller->addChildViewController(this);
    attachTo(view ? view : controller->view());
}

void AdBannerController::attachTo(QWidget *superview) {
    if (!superview) {
        Refusal::report(Refusal::Request::AddBanner, Refusal::Reason::NoView,
                        QStringLiteral("a banner is never shown: no view was given for it"));
        return;
    }
    QWidget *own = view();
    if (!own)
        return;
    SplitterGuard::keepOut(own, superview);
    own->setParent(superview);
    setBannerConstraints();
    BannerAreas::current().add(weak_from_this());
    // If the ad table does not come within a turn, a house banner is shown.
    if (!bannerSwapTimer())
        m_rotation.scheduleTurn();
}

QWidget *AdBannerController::window() const {
    QWidget *host = hostWindow();
    return WindowProxy::hostOf(host) ? nullptr : host;
}

QWindow *AdBannerController::windowHandle() const {
    return WindowProxy::nativeWindowOf(hostWindow());
}

QWidget *AdBannerController::hostWindow() const {
    if (!m_placement.isPlaced())
        return m_window;
    const QWidget *superview = viewIfLoaded() ? viewIfLoaded()->parentWidget() : nullptr;
    return superview ? superview->window() : nullptr;
}

QRect AdBannerController::rectInWindow() const {
    const QWidget *own = viewIfLoaded();
    const QWidget *superview = own ? own->parentWidget() : nullptr;
    if (!superview || isBannerHidden())
        return {};
    const QWidget *whole = superview->window();
    if (!own->isVisibleTo(whole))
        return {};
    QRect rect = own->geometry();
    if (const BannerShadowView *shadow = m_placement.shadow())
        rect |= shadow->geometry();
    rect &= superview->rect();
    rect.moveTopLeft(superview->mapTo(whole, rect.topLeft()));
    rect &= whole->rect();
    return rect.isEmpty() ? QRect() : rect;
}

void AdBannerController::setBannerConstraints() {
    QWidget *own = view();
    if (!own || !own->parentWidget())
        return;
    m_rotation.watch(own);
    new BannerWatch(own);
    m_placement.place(own, bannerImage(), closeButton(), m_interface.adMark());
    if (BannerImageView *image = bannerImage())
        new BannerNativeWindow(own, image);
}

void AdBannerController::updateBannerConstraint() {
    if (bannerImage() && bannerImage()->hasImage())
        m_placement.setImageSize(bannerImage()->imageSize());
}

void AdBannerController::setHeight(double height) {
    view();
    if (bannerImage())
        bannerImage()->setNominalHeight(height);
    m_placement.setHeight(height);
}

void AdBannerController::setInTabOrder(bool isInTabOrder) {
    view();
    m_interface.setInTabOrder(isInTabOrder);
}

// Content.

void AdBannerController::endDownloadСonfiguration() {
    MainQueue::post([weak = weak_from_this()] {
        qCInfo(velmoraLog, "endDownloadСonfiguration"); // without debug mode, too
        if (const auto self = weak.lock())
            self->swapBanners();
    });
}

void AdBannerController::swapBanners() {
    m_rotation.cancelTurn();
    if (isGone())
        return;
    if (Switches::isADSRemoved()) {
        // Another process of the host may have removed the ads.
        Refusal::reportAdsRemoved(Refusal::Request::ShowBanner);
        removeADS();
        return;
    }
    if (m_rotation.isOutOfSight()) {
        LOG(QStringLiteral("banner rotation rests: nobody can see the banner"));
        m_rotation.rest();
        return;
    }
    m_rotation.scheduleTurn();
    // When the server has not answered for a whole turn, a house banner is shown.
    if (m_request > 0 && !m_rotation.hasShownBanner())
        displayBanner(m_downloader->readyBanner());
    askForBanner();
}

void AdBannerController::askForBanner() {
    const int request = ++m_request;
    m_downloader->downloadBannerWithComplitionBlock(
        [weak = weak_from_this(), request](const BannerAd &ready, bool hasFailed) {
            const auto self = weak.lock();
            if (self && request == self->m_request &&
                (!hasFailed || !self->m_rotation.hasShownBanner()))
                self->displayBanner(ready);
        });
}

void AdBannerController::displayBanner(const BannerAd &ready) {
    if (isGone() || Switches::isADSRemoved())
        return;
    const bool isNamed = !ready.file.isEmpty() && !ready.file.path().contains(MissingNameMark);
    if (isNamed && QFileInfo::exists(ready.file.toLocalFile()))
        setBannerGifImageWithURL(ready);
    else
        displayHouseBanner();
}

void AdBannerController::displayHouseBanner() {
    if (m_standardBanners.isEmpty())
        return;
    const QStringList identifiers = m_standardBanners.keys();
    setBannerGifImageWithName(
        identifiers.at(RandomSource::current().next() % quint32(identifiers.size())));
}

void AdBannerController::setBannerGifImageWithURL(const BannerAd &ad) {
    BannerAd named = ad;
    if (named.name.isEmpty())
        named.name = QStringLiteral("Web Banner");
    showImage(named, ad.file.toLocalFile());
    if (bannerImage() && !bannerImage()->hasImage())
        displayHouseBanner();
}

void AdBannerController::setBannerGifImageWithName(const QString &identifier) {
    const QString picture = StandardNames::bannerFromName(identifier);
    showImage({QUrl(), QUrl(m_standardBanners.value(identifier)), identifier}, picture);
}

void AdBannerController::showImage(const BannerAd &ad, const QString &path) {
    if (!bannerImage())
        return;
    m_shown = ad;
    m_rotation.setHasShownBanner();
    bannerImage()->setImage(path);
    bannerImage()->setAccessibleDescription(ad.name);
    updateBannerConstraint();
    setPartsHidden(!bannerImage()->hasImage(), &Animator::setHidden);
    if (!bannerImage()->hasImage())
        refusePicture();
    LOG(QStringLiteral("banner shown: %1").arg(ad.name));
}

void AdBannerController::refusePicture() const {
    Refusal::report(
        Refusal::Request::ShowBanner, Refusal::Reason::NoPicture,
        QStringLiteral("banner not shown: the picture of %1 cannot be used").arg(m_shown.name));
}

void AdBannerController::goToBannerURL() {
    open(m_shown);
}

void AdBannerController::open(const BannerAd &ad) {
    Workspace::openURL(ad.link);
    NotificationCenter::defaultCenter().post(VLMclickForBanner, ad.name);
}

void AdBannerController::closeClicked() {
    // A host that removes the banner at once has something else in its place at the second click.
    QWidget *own = viewIfLoaded();
    if (QWidget *superview = own ? own->parentWidget() : nullptr)
        ClickGuard::begin(superview, own->geometry(), QApplication::doubleClickInterval() / 1000.0);
    removeBannerAction();
}

void AdBannerController::removeBannerAction() {
    NotificationCenter::defaultCenter().post(VLMtryRemoveAds);
}

bool AdBannerController::isBannerHidden() const {
    const QWidget *own = viewIfLoaded();
    return !own || isGone() || Animator::isHidden(own);
}

void AdBannerController::setBannerHidden(bool hidden) {
    // The host may still hold a banner whose view is fading out for good.
    if (m_removed)
        return;
    view();
    setPartsHidden(hidden, &Animator::setHiddenNow);
}

void AdBannerController::setPartsHidden(bool hidden, void (*set)(QWidget *, bool)) {
    for (QWidget *part : parts()) {
        // Without a superview it would become a window.
        if (hidden || part->parentWidget())
            set(part, hidden);
    }
    // A view that fades out is not hidden yet.
    BannerAreas::checkLater();
}

void AdBannerController::removeADS() {
    m_removed = true;
    m_rotation.cancelTurn();
    for (QWidget *part : parts())
        Animator::remove(part);
    BannerAreas::checkLater();
}

QList<QWidget *> AdBannerController::parts() const {
    QList<QWidget *> parts;
    if (QWidget *own = viewIfLoaded())
        parts.append(own);
    if (BannerShadowView *shadow = m_placement.shadow())
        parts.append(shadow);
    return parts;
}

bool AdBannerController::isGone() const {
    return m_removed || (m_viewWasLoaded && !bannerImage()) || isContentReplaced();
}

bool AdBannerController::isContentReplaced() const {
    const QWidget *superview = viewIfLoaded() ? viewIfLoaded()->parentWidget() : nullptr;
    const auto *window =
        qobject_cast<QMainWindow *>(superview ? superview->parentWidget() : nullptr);
    return m_isInCentralWidget && window && window->centralWidget() != superview;
}

} // namespace velmora
