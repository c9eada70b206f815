#include "banners/BannerController.h"

#include "banners/BannerShadowView.h"

#include "Support/Log.h"
#include "Support/StandardNames.h"
#include "content/AdKeys.h"
#include "content/AdsEventLogger.h"
#include "controls/BannerImageView.h"
#include "controls/CloseButtonCell.h"
#include "facade/Switches.h"
#include "platform/Animator.h"
#include "platform/InterfaceImage.h"
#include "platform/InterfaceLoader.h"
#include "platform/MainQueue.h"
#include "platform/NotificationCenter.h"
#include "platform/RandomSource.h"
#include "platform/Window.h"
#include "platform/Workspace.h"

#include <Velmora/Notifications.h>
#include <Velmora/Support.h>

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
    const auto action = [weak](void (BannerController::*operation)()) {
        return [weak, operation] {
            if (const auto self = weak.lock())
                (self.get()->*operation)();
        };
    };
    if (m_bannerImage)
        QObject::connect(m_bannerImage, &QAbstractButton::clicked, m_bannerImage,
                         action(&BannerController::goToBannerURL));
    if (m_closeButton) {
        m_closeButton->setIcon(InterfaceImage::named(QStringLiteral("ads_close_button")));
        m_closeButton->setAccessibleName(VLMStringFromKey(QStringLiteral("RemoveAdsText")));
        QObject::connect(m_closeButton, &QAbstractButton::clicked, m_closeButton,
                         action(&BannerController::removeBannerAction));
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
    if (isGone() || Switches::isADSRemoved())
        return;
    const Window *window = Window::of(m_window);
    if (!window || !window->isVisible()) {
        LOG(QStringLiteral("banner rotation rests: the window is not visible"));
        return;
    }
    const auto weak = weak_from_this();
    m_downloader->downloadBannerWithComplitionBlock([weak] {
        if (const auto self = weak.lock())
            self->displayBanner();
    });
    // A banner from the cache is shown inside the call, and the host may answer by removing it.
    if (isGone())
        return;
    m_bannerSwapTimer = Timer::scheduled(SwapSeconds, Timer::Kind::OneShot, [weak] {
        if (const auto self = weak.lock())
            self->swapBanners();
    });
    setGodTimer(m_bannerSwapTimer);
}

void BannerController::displayBanner() {
    if (isGone() || Switches::isADSRemoved())
        return;
    const QUrl file = m_downloader->bannerURL();
    if (!file.isEmpty() && !file.path().contains(MissingNameMark)) {
        m_currentURL = m_downloader->linkBannerURL();
        setBannerGifImageWithURL(file);
        return;
    }
    if (m_standardBanners.isEmpty())
        return;
    const QStringList identifiers = m_standardBanners.keys();
    const QString identifier =
        identifiers.at(RandomSource::current().next() % quint32(identifiers.size()));
    m_currentURL = QUrl(m_standardBanners.value(identifier));
    setBannerGifImageWithName(identifier);
}

void BannerController::setBannerGifImageWithURL(const QUrl &file) {
    const QString name = m_downloader->bannerInfo().value(kBannerName).toString();
    m_selectBanner = name.isEmpty() ? QStringLiteral("Web Banner") : name;
    showImage(file.toLocalFile());
}

void BannerController::setBannerGifImageWithName(const QString &identifier) {
    m_selectBanner = identifier;
    showImage(StandardNames::bannerFromName(identifier));
}

void BannerController::showImage(const QString &path) {
    if (!m_bannerImage)
        return;
    m_bannerImage->setImage(path);
    m_bannerImage->setAccessibleName(m_selectBanner);
    updateBannerConstraint();
    for (QWidget *part : parts())
        Animator::setHidden(part, !m_bannerImage->hasImage());
    LOG(QStringLiteral("banner shown: %1").arg(m_selectBanner));
}

void BannerController::goToBannerURL() {
    Workspace::openURL(m_currentURL);
    NotificationCenter::defaultCenter().post(VLMclickForBanner, m_selectBanner);
}

void BannerController::removeBannerAction() {
    NotificationCenter::defaultCenter().post(VLMtryRemoveAds);
}

void BannerController::setBannerHidden(bool hidden) {
    view();
    for (QWidget *part : parts())
        Animator::setHiddenNow(part, hidden);
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
    return m_removed || (m_viewWasLoaded && !m_bannerImage);
}

void BannerController::cancelSwap() {
    if (const TimerPtr timer = std::exchange(m_bannerSwapTimer, nullptr))
        timer->invalidate();
}

BannerImageView *BannerController::bannerImage() const {
    return m_bannerImage;
}

CloseButtonCell *BannerController::closeButton() const {
    return m_closeButton;
}

} // namespace velmora
