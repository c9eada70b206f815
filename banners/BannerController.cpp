// SPDX-License-Identifier: Apache-2.0
#include "BannerController.h"

#include "BannerShadowView.h"

#include "AdKeys.h"
#include "AdsEventLogger.h"
#include "Animator.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"
#include "InterfaceImage.h"
#include "InterfaceLoader.h"
#include "Log.h"
#include "MainQueue.h"
#include "RandomSource.h"
#include "Switches.h"
#include "VisibilityWatch.h"
#include "Workspace.h"
#include <Velmora/NotificationCenter.h>

#include <Velmora/Notifications.h>
#include <Velmora/StandardNames.h>
#include <Velmora/Support.h>

#include <QtWidgets/QMainWindow>

#include <utility>

namespace velmora {

BannerController::BannerController() = default;

BannerController::~BannerController() {
    cancelSwap();
    QWidget *own = viewIfLoaded();
    // A removed banner's view is fading out and goes by itself.
    if (!own || m_removed)
        return;
    if (own->parentWidget())
        own->deleteLater();
    else
        delete own;
}

QWidget *BannerController::loadView() {
    InterfaceLoader::registerClass<BannerImageView>(QStringLiteral("BannerImageView"));
    InterfaceLoader::registerClass<CloseButtonCell>(QStringLiteral("CloseButtonCell"));
    QWidget *root = InterfaceLoader::load(QStringLiteral("BannerController"));
    if (!root)
        return nullptr;
    m_viewWasLoaded = true;
    m_bannerImage = InterfaceLoader::outlet<BannerImageView>(root, QStringLiteral("bannerImage"));
    m_closeButton = InterfaceLoader::outlet<CloseButtonCell>(root, QStringLiteral("closeButton"));
    using Relation = LayoutConstraint::Relation;
    m_heightConstraint =
        InterfaceLoader::constraint(root, QStringLiteral("heightConstraint"), Relation::Height);
    m_shadowBotOfset =
        InterfaceLoader::constraint(root, QStringLiteral("shadowBotOfset"), Relation::Spacing);
    return root;
}

void BannerController::viewDidLoad() {
    // Nothing is seen before the first banner is there.
    Animator::setHiddenNow(view(), true);
    initBanners();
    refusedBecauseAdsAreRemoved();
}

void BannerController::initBanners() {
    m_downloader = AdsDownloader::sharedInstance();
    m_downloader->addDelegate(shared_from_this());
    // Delegates are told once a run. A banner that comes later finds the table ready.
    const bool isLate = m_downloader->hasToldDelegates();
    m_downloader->startUpdateAllAds();
    if (isLate)
        endDownloadСonfiguration();
    AdsEventLogger::sharedInstance();

    const auto weak = weak_from_this();
    if (m_bannerImage) {
        QObject::connect(m_bannerImage, &BannerImageView::wentDown, m_bannerImage, [weak] {
            if (const auto self = weak.lock())
                self->m_pressed = self->m_shown;
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

    m_standardBanners = StandardNames::standardBanners();
    // A host never advertises itself.
    m_standardBanners.remove(
        VLMMainAppBundle().objectForInfoDictionaryKey(MetrivoAppId).toString());
}

bool BannerController::refusedBecauseAdsAreRemoved() {
    if (!Switches::isADSRemoved())
        return false;
    cancelSwap();
    if (QWidget *own = view())
        Animator::setHiddenNow(own, true);
    return true;
}

void BannerController::endDownloadСonfiguration() {
    MainQueue::post([weak = weak_from_this()] {
        qCInfo(velmoraLog, "endDownloadСonfiguration");
        if (const auto self = weak.lock())
            self->swapBanners();
    });
}

void BannerController::swapBanners() {
    cancelSwap();
    m_rests = false;
    if (isGone())
        return;
    if (Switches::isADSRemoved()) {
        // Another process of the host has sold the removal meanwhile.
        removeADS();
        return;
    }
    if (isOutOfSight()) {
        LOG(QStringLiteral("banner rotation rests: nobody can see the banner"));
        m_rests = true;
        return;
    }
    scheduleSwap();
    // A server that has taken a whole turn may never answer.
    if (m_asks && !hasShownBanner())
        displayBanner(m_downloader->readyBanner());
    else
        askForBanner();
}

bool BannerController::isOutOfSight() const {
    if (!m_visibility || !m_visibility->isWindowVisible())
        return true;
    // The first banner comes even while its page lies behind another, and is there when the page
    // is opened.
    return hasShownBanner() && !m_visibility->isSuperviewVisible();
}

void BannerController::takeTurnIfResting() {
    if (m_rests && !isOutOfSight())
        swapBanners();
}

void BannerController::scheduleSwap() {
    m_bannerSwapTimer =
        Timer::scheduled(SwapSeconds, Timer::Kind::OneShot, [weak = weak_from_this()] {
            if (const auto self = weak.lock())
                self->swapBanners();
        });
    setGodTimer(m_bannerSwapTimer);
}

void BannerController::cancelSwap() {
    if (const TimerPtr timer = std::exchange(m_bannerSwapTimer, nullptr))
        timer->invalidate();
}

void BannerController::askForBanner() {
    if (std::exchange(m_asks, true))
        return;
    m_downloader->downloadBannerWithComplitionBlock(
        [weak = weak_from_this()](const BannerAd &ready, bool hasFailed) {
            const auto self = weak.lock();
            if (!self)
                return;
            self->m_asks = false;
            if (!hasFailed || !self->hasShownBanner())
                self->displayBanner(ready);
        });
}

void BannerController::displayBanner(const BannerAd &ready) {
    if (isGone() || Switches::isADSRemoved())
        return;
    if (!ready.file.isEmpty() && !ready.file.path().contains(MissingNameMark)) {
        setBannerGifImageWithURL(ready);
        return;
    }
    if (m_standardBanners.isEmpty())
        return;
    const QStringList identifiers = m_standardBanners.keys();
    setBannerGifImageWithName(
        identifiers.at(RandomSource::current().next() % quint32(identifiers.size())));
}

void BannerController::setBannerGifImageWithURL(const BannerAd &ad) {
    BannerAd named = ad;
    if (named.name.isEmpty())
        named.name = QStringLiteral("Web Banner");
    showImage(named, ad.file.toLocalFile());
}

void BannerController::setBannerGifImageWithName(const QString &identifier) {
    const QString picture = StandardNames::bannerFromName(identifier);
    showImage({QUrl(), QUrl(m_standardBanners.value(identifier)), identifier}, picture);
}

void BannerController::showImage(const BannerAd &ad, const QString &path) {
    if (!m_bannerImage)
        return;
    m_shown = ad;
    m_bannerImage->setImage(path);
    m_bannerImage->setAccessibleName(ad.name);
    updateBannerConstraint();
    setPartsHidden(!m_bannerImage->hasImage(), &Animator::setHidden);
    LOG(QStringLiteral("banner shown: %1").arg(ad.name));
}

void BannerController::goToBannerURL() {
    open(m_shown);
}

void BannerController::open(const BannerAd &ad) {
    Workspace::openURL(ad.link);
    NotificationCenter::defaultCenter().post(VLMclickForBanner, ad.name);
}

void BannerController::removeBannerAction() {
    NotificationCenter::defaultCenter().post(VLMtryRemoveAds);
}

void BannerController::setBannerHidden(bool hidden) {
    view();
    setPartsHidden(hidden, &Animator::setHiddenNow);
}

void BannerController::setPartsHidden(bool hidden, void (*set)(QWidget *, bool)) {
    for (QWidget *part : parts()) {
        // Without a superview it would become a window.
        if (hidden || part->parentWidget())
            set(part, hidden);
    }
}

void BannerController::removeADS() {
    m_removed = true;
    cancelSwap();
    for (QWidget *part : parts())
        Animator::remove(part);
}

QList<QWidget *> BannerController::parts() const {
    QList<QWidget *> parts;
    if (QWidget *own = viewIfLoaded())
        parts.append(own);
    if (m_shadow)
        parts.append(m_shadow);
    return parts;
}

bool BannerController::isGone() const {
    return m_removed || (m_viewWasLoaded && !m_bannerImage) || isContentReplaced();
}

bool BannerController::isContentReplaced() const {
    const QWidget *superview = viewIfLoaded() ? viewIfLoaded()->parentWidget() : nullptr;
    const auto *window =
        qobject_cast<QMainWindow *>(superview ? superview->parentWidget() : nullptr);
    return m_isInCentralWidget && window && window->centralWidget() != superview;
}

BannerImageView *BannerController::bannerImage() const {
    return m_bannerImage;
}

CloseButtonCell *BannerController::closeButton() const {
    return m_closeButton;
}

} // namespace velmora
