// SPDX-License-Identifier: Apache-2.0
#include "AdBannerController.h"

#include "AdKeys.h"
#include "AdsEventLogger.h"
#include "Animator.h"
#include "BannerAreas.h"
#include "BannerImageView.h"
#include "BannerNativeWindow.h"
#include "BannerShadowView.h"
#include "BannerWatch.h"
#include "CloseButtonCell.h"
#include "InterfaceImage.h"
#include "InterfaceLoader.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlainView.h"
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
    InterfaceLoader::registerClass<PlainView>(QStringLiteral("PlainView"));
    InterfaceLoader::registerClass<BannerImageView>(QStringLiteral("BannerImageView"));
    InterfaceLoader::registerClass<CloseButtonCell>(QStringLiteral("CloseButtonCell"));
    QWidget *root = InterfaceLoader::load(QStringLiteral("BannerController"));
    if (!root)
        return nullptr;
    m_viewWasLoaded = true;
    m_bannerImage = InterfaceLoader::outlet<BannerImageView>(root, QStringLiteral("bannerImage"));
    m_closeButton = InterfaceLoader::outlet<CloseButtonCell>(root, QStringLiteral("closeButton"));
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
    m_downloader->startUpdateAllAds();
    if (isLate)
        endDownloadСonfiguration();
    // The first call loads the events that an earlier run could not deliver.
    AdsEventLogger::sharedInstance();
    connectControls();
    m_standardBanners = StandardNames::standardBanners();
    // A host never advertises itself.
    m_standardBanners.remove(
        VLMMainAppBundle().objectForInfoDictionaryKey(MetrivoAppId).toString());
}

void AdBannerController::connectControls() {
    const auto weak = weak_from_this();
    if (m_bannerImage) {
        QObject::connect(m_bannerImage, &BannerImageView::wentDown, m_bannerImage, [weak] {
            if (const auto self = weak.lock())
                self->m_pressed = self->m_shown;
        });
        QObject::connect(m_bannerImage, &BannerImageView::failed, m_bannerImage, [weak] {
            const auto self = weak.lock();
            if (!self || self->m_shown.file.isEmpty())
                return;
            MediaCache::discard(self->m_shown.file);
            self->refusePicture();
            self->displayHouseBanner();
        });
        QObject::connect(m_bannerImage, &QAbstractButton::clicked, m_bannerImage, [weak] {
            if (const auto self = weak.lock())
                self->open(self->m_pressed);
        });
    }
    if (m_closeButton) {
        m_closeButton->setIcon(InterfaceImage::named(QStringLiteral("ads_close_button")));
        m_closeButton->setAccessibleName(VLMStringFromKey(QStringLiteral("RemoveAdsText")));
        QObject::connect(m_closeButton, &QAbstractButton::clicked, m_closeButton, [weak] {
            if (const auto self = weak.lock())
                self->removeBannerAction();
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
    m_placement.place(own, m_bannerImage, m_closeButton);
    if (m_bannerImage)
        new BannerNativeWindow(own, m_bannerImage);
}

void AdBannerController::updateBannerConstraint() {
    if (m_bannerImage && m_bannerImage->hasImage())
        m_placement.setImageSize(m_bannerImage->imageSize());
}

void AdBannerController::setHeight(double height) {
    view();
    if (m_bannerImage)
        m_bannerImage->setNominalHeight(height);
    m_placement.setHeight(height);
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
    if (m_bannerImage && !m_bannerImage->hasImage())
        displayHouseBanner();
}

void AdBannerController::setBannerGifImageWithName(const QString &identifier) {
    const QString picture = StandardNames::bannerFromName(identifier);
    showImage({QUrl(), QUrl(m_standardBanners.value(identifier)), identifier}, picture);
}

void AdBannerController::showImage(const BannerAd &ad, const QString &path) {
    if (!m_bannerImage)
        return;
    m_shown = ad;
    m_rotation.setHasShownBanner();
    m_bannerImage->setImage(path);
    m_bannerImage->setAccessibleName(ad.name);
    updateBannerConstraint();
    setPartsHidden(!m_bannerImage->hasImage(), &Animator::setHidden);
    if (!m_bannerImage->hasImage())
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
    return m_removed || (m_viewWasLoaded && !m_bannerImage) || isContentReplaced();
}

bool AdBannerController::isContentReplaced() const {
    const QWidget *superview = viewIfLoaded() ? viewIfLoaded()->parentWidget() : nullptr;
    const auto *window =
        qobject_cast<QMainWindow *>(superview ? superview->parentWidget() : nullptr);
    return m_isInCentralWidget && window && window->centralWidget() != superview;
}

BannerImageView *AdBannerController::bannerImage() const {
    return m_bannerImage;
}

CloseButtonCell *AdBannerController::closeButton() const {
    return m_closeButton;
}

} // namespace velmora
