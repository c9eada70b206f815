// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenController.h"

#include "Animator.h"
#include "InterfaceLoader.h"
#include "MainQueue.h"
#include "SplashScreenInterface.h"
#include "SplashScreenKeys.h"
#include "SplashScreenLayout.h"
#include "StyleShield.h"
#include "SystemVersion.h"
#include "Window.h"

#include <Velmora/Support.h>

#include <utility>

namespace velmora {

namespace {

bool isShown(const QWidget *element) {
    return element && !Animator::isHidden(element);
}

} // namespace

std::shared_ptr<SplashScreenController>
SplashScreenController::initSplashScreenWithWindow(QWidget *window, bool isUnityWindow) {
    const std::shared_ptr<SplashScreenController> controller(new SplashScreenController);
    controller->setIsUnityWindow(isUnityWindow);
    controller->setWindow(window);
    return controller;
}

SplashScreenController::SplashScreenController() = default;

SplashScreenController::~SplashScreenController() {
    // A view that was never put over a window has no other owner.
    if (!overlay())
        delete viewIfLoaded();
}

bool SplashScreenController::postedToMainThread(void (SplashScreenController::*operation)()) {
    if (MainQueue::isMainThread())
        return false;
    MainQueue::post([weak = weak_from_this(), operation] {
        if (const auto self = weak.lock())
            (self.get()->*operation)();
    });
    return true;
}

// Loading.

QWidget *SplashScreenController::loadView() {
    QWidget *root = SplashScreenInterface::load();
    if (!root)
        return nullptr;
    m_outlets = SplashScreenOutlets::of(root);
    using Relation = LayoutConstraint::Relation;
    setSplashTimerConstraint(InterfaceLoader::constraint(
        root, QStringLiteral("splashTimerConstraint"), Relation::Spacing));
    setSpashTimerConstraint1(InterfaceLoader::constraint(
        root, QStringLiteral("spashTimerConstraint1"), Relation::Spacing));
    return root;
}

void SplashScreenController::setSplashTimerConstraint(const LayoutConstraintPtr &constraint) {
    m_outlets.splashTimerConstraint = constraint;
    lowerTimerConstraint();
}

void SplashScreenController::setSpashTimerConstraint1(const LayoutConstraintPtr &constraint) {
    m_outlets.spashTimerConstraint1 = constraint;
    // Lowers the first constraint once more and not this one; hosts know the layout that way.
    lowerTimerConstraint();
}

void SplashScreenController::lowerTimerConstraint() {
    const LayoutConstraintPtr &first = m_outlets.splashTimerConstraint;
    if (first && SystemVersion::current().minor < 11)
        first->setConstant(first->constant() - 1);
}

void SplashScreenController::viewDidLoad() {
    initViewState();
    m_layout = new SplashScreenLayout(view(), m_outlets);
    m_appearance.setElements(view(), m_outlets, m_layout);
    m_announcer.setView(view());
    new SplashScreenKeys(view(), m_outlets.closeButton, m_outlets.soundButton);
    new StyleShield(view(), [weak = weak_from_this()] {
        if (const auto self = weak.lock(); self && self->m_layout) {
            self->m_placement.updateFrame();
            self->m_layout->apply();
            self->m_announcer.shrink();
        }
    });
}

void SplashScreenController::initViewState() {
    SplashScreenInterface::prepare(view(), m_outlets);
    connectActions();
    m_didInitState = true;
    // Later, because the presenter may set an icon first, and the host the application's.
    MainQueue::post([weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->m_appearance.showDefaultIcon(self->m_window);
    });
}

void SplashScreenController::connectActions() {
    // The output may remove this controller: it is kept alive until the action is done.
    const auto connect = [this](QAbstractButton *button, auto action) {
        if (!button)
            return;
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [weak = weak_from_this(), action] {
                             if (const auto self = weak.lock())
                                 action(*self);
                         });
    };
    using Self = SplashScreenController;
    connect(m_outlets.closeButton, [](Self &self) { self.closeSplashScreen(); });
    connect(m_outlets.removeAdsButton, [](Self &self) { self.removeAdsAction(); });
    connect(m_outlets.removeAdsImageButton, [](Self &self) { self.removeAdsAction(); });
    connect(m_outlets.urlButton, [](Self &self) { self.goToURLForBanner(); });
    connect(m_outlets.soundButton,
            [](Self &self) { self.soundOnOff(self.m_outlets.soundButton->state()); });
    connectLinkArea();
}

void SplashScreenController::connectLinkArea() {
    LinkArea *link = m_outlets.urlButton;
    if (!link)
        return;
    link->setAdRect([weak = weak_from_this()] {
        const auto self = weak.lock();
        return self ? self->adRect() : QRect();
    });
    const VideoView *video = m_outlets.splashScreenPlayerView;
    if (!video)
        return;
    QObject::connect(video, &VideoView::started, link, [link, video] {
        link->ignorePressesFor(VideoSettlingSeconds);
        link->updateCursor();
        // It fades in with its first picture, which comes during the fade.
        Animator::contentChanged(video);
    });
}

QRect SplashScreenController::adRect() const {
    const auto inLink = [this](const QWidget *view, const QRectF &picture) {
        return picture.translated(view->pos() - m_outlets.urlButton->pos()).toAlignedRect();
    };
    const VideoView *video = m_outlets.splashScreenPlayerView;
    if (isShown(video))
        return video->frame().isNull() ? QRect() : inLink(video, video->frameRect());
    const ImageView *still = m_outlets.interstitialImage;
    return isShown(still) ? inLink(still, still->imageRect()) : QRect();
}

// The window.

void SplashScreenController::setWindow(QWidget *window) {
    if (!MainQueue::isMainThread()) {
        MainQueue::post([weak = weak_from_this(), target = QPointer<QWidget>(window)] {
            if (const auto self = weak.lock())
                self->setWindow(target);
        });
        return;
    }
    m_window = window;
    attach();
}

void SplashScreenController::attach() {
    const Window *companion = Window::of(m_window);
    QWidget *own = view();
    if (!companion || !own)
        return;
    if (ViewController *content = companion->contentViewController())
        content->addChildViewController(this);
    const auto contentLost = [weak = weak_from_this()] {
        MainQueue::post([weak] {
            if (const auto self = weak.lock(); self && self->m_window)
                self->m_placement.replace();
        });
    };
    const auto missing = [weak = weak_from_this()] {
        LOG(QStringLiteral("splash screen closed: it does not appear in its window"));
        if (const auto self = weak.lock())
            self->didNotAppear();
    };
    m_placement.place(own, m_window,
                      m_isUnityWindow ? Overlay::Kind::Native : Overlay::Kind::Automatic,
                      {contentLost, missing});
}

void SplashScreenController::removeFromWindow() {
    removeFromParentViewController();
    m_placement.remove();
}

// View states.

void SplashScreenController::swapViewForState(qint64 state) {
    if (state == SplashScreenViewStateStart)
        showPhase(SplashScreenVisibility::Phase::Start);
    else if (state == SplashScreenViewStateVideo)
        showPhase(SplashScreenVisibility::Phase::Video);
    else if (state == SplashScreenViewStateEnd)
        showPhase(SplashScreenVisibility::Phase::End);
}

void SplashScreenController::showPhase(SplashScreenVisibility::Phase phase) {
    m_placement.setHidden(false);
    if (phase != SplashScreenVisibility::Phase::End)
        m_appearance.setBackdropBlack(false);
    else if (!m_interstitialUrl.isEmpty() && isShown(m_outlets.splashScreenPlayerView))
        m_appearance.setBackdropBlack(true);
    SplashScreenVisibility::apply(
        m_outlets, phase,
        {m_leftOut, m_withouSplash, !m_interstitialUrl.isEmpty(), m_isAdExpected});
    m_phase = phase;
    updateAdMark();
    if (m_outlets.urlButton)
        m_outlets.urlButton->setLinkEnabled(phase != SplashScreenVisibility::Phase::Start);
    if (m_layout)
        m_layout->apply();
    if (isShown(m_outlets.closeButton))
        m_announcer.canBeClosed(m_window);
}

void SplashScreenController::showStartScreen() {
    if (postedToMainThread(&SplashScreenController::showStartScreen))
        return;
    enterStartScreen();
}

void SplashScreenController::showStartVideoWithoutStartScreen() {
    if (postedToMainThread(&SplashScreenController::showStartVideoWithoutStartScreen))
        return;
    m_withouSplash = true;
    enterStartScreen();
}

void SplashScreenController::enterStartScreen() {
    m_canShowEnd = true;
    m_loadedInterstitial = {};
    m_windowLock.lock(m_window);
    swapViewForState(SplashScreenViewStateStart);
}

void SplashScreenController::showEndScreen() {
    if (postedToMainThread(&SplashScreenController::showEndScreen))
        return;
    if (!m_canShowEnd) {
        showPhase(SplashScreenVisibility::Phase::VideoWithCloseButton);
        return;
    }
    loadInterstitial();
    m_withouSplash = false;
    swapViewForState(SplashScreenViewStateEnd);
}

// The picture is shown twice in windows without the video, when the close button is due and when
// the video has ended, and in the window of a video that failed before the close button. It is read
// once.
void SplashScreenController::loadInterstitial() {
    const bool isLoaded =
        std::exchange(m_loadedInterstitial, m_interstitialUrl) == m_interstitialUrl;
    if (!m_interstitialUrl.isEmpty() && !isLoaded && m_outlets.interstitialImage)
        m_outlets.interstitialImage->setImageFile(m_interstitialUrl.toLocalFile());
}

void SplashScreenController::hide() {
    m_player.close();
    m_announcer.reset();
    m_windowLock.unlock(m_window);
    m_placement.setHidden(true);
}

// Video.

void SplashScreenController::showVideo() {
    if (postedToMainThread(&SplashScreenController::showVideo))
        return;
    m_canShowEnd = false;
    initVideoLayer();
    swapViewForState(SplashScreenViewStateVideo);
    updateSoundButton();
    m_player.playFromStart();
}

void SplashScreenController::updateSoundButton() {
    if (m_outlets.soundButton)
        m_outlets.soundButton->setState(isMuted() ? 1 : 0);
}

void SplashScreenController::initVideoLayer() {
    m_player.close();
    if (!m_outlets.splashScreenPlayerView || !m_placement.hasContent()) {
        LOG(QStringLiteral("the video is not played: its window is gone"));
        return;
    }
    const auto ended = [weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->didVideoEnded();
    };
    const auto failed = [weak = weak_from_this()] {
        if (const auto self = weak.lock())
            self->didVideoFail();
    };
    m_player.open(m_videoUrl, m_outlets.splashScreenPlayerView, ended, failed);
}

void SplashScreenController::didVideoEnded() {
    m_canShowEnd = true;
    if (const auto output = m_output.lock())
        output->didVideoEnded();
}

// The still takes the place of the picture at which the video stopped: with the countdown until the
// close button is due, as the end screen afterwards. The presenter is not told, for the video did
// not end.
void SplashScreenController::didVideoFail() {
    m_canShowEnd = true;
    if (isShown(m_outlets.closeButton)) {
        showEndScreen();
    } else if (!m_interstitialUrl.isEmpty()) {
        loadInterstitial();
        showPhase(SplashScreenVisibility::Phase::StillWithCountdown);
    }
}

void SplashScreenController::pauseShowVideo() {
    m_player.pause();
    pauseProgressViews();
}

void SplashScreenController::continueShowVideo() {
    m_player.play();
    compliteProgressViews();
}

// The countdowns.

void SplashScreenController::pauseProgressViews() {
    for (TimeProgressView *ring : m_outlets.rings())
        ring->stop();
}

void SplashScreenController::compliteProgressViews() {
    for (TimeProgressView *ring : m_outlets.rings())
        ring->complite();
}

void SplashScreenController::startTimerViewFromSec(qint64 fromSec, qint64 endSec) {
    if (TimeProgressView *ring = m_outlets.timeProgressView())
        ring->startTimerFromSec(float(fromSec), float(endSec));
    m_announcer.countdownStarted(m_window, endSec - fromSec);
}

void SplashScreenController::startVideoTimerViewFromSec(qint64 fromSec, qint64 endSec) {
    if (m_outlets.videoProgressView)
        m_outlets.videoProgressView->startTimerFromSec(float(fromSec), float(endSec));
    m_announcer.countdownStarted(m_window, endSec - fromSec);
}

void SplashScreenController::setTimerText(const QString &text) {
    if (TextField *label = m_outlets.timeLabel())
        label->setText(text);
    updateAdMark();
}

void SplashScreenController::setVideoTimerText(const QString &text) {
    if (m_outlets.timeVideoLabel)
        m_outlets.timeVideoLabel->setText(text);
    updateAdMark();
}

void SplashScreenController::setAdExpected(bool expected) {
    m_isAdExpected = expected;
    if (m_phase != SplashScreenVisibility::Phase::Start || !m_outlets.adMark)
        return;
    Animator::setHidden(m_outlets.adMark, !expected || m_withouSplash);
    if (m_layout)
        m_layout->apply();
}

void SplashScreenController::updateAdMark() {
    AdMark *mark = m_outlets.adMark;
    if (!mark)
        return;
    const TextField *countdown = nullptr;
    if (m_phase == SplashScreenVisibility::Phase::Start)
        countdown = m_outlets.timeLabel();
    else if (m_phase == SplashScreenVisibility::Phase::Video)
        countdown = m_outlets.timeVideoLabel;
    mark->setSeconds(countdown ? countdown->text() : QString());
    if (m_layout && view()->isVisible() && mark->width() != mark->sizeHint().width())
        m_layout->apply();
}

// The user's actions.

void SplashScreenController::closeSplashScreen() {
    m_withouSplash = false;
    if (const auto output = m_output.lock())
        output->didClickClose();
}

void SplashScreenController::didNotAppear() {
    m_withouSplash = false;
    if (const auto output = m_output.lock())
        output->didNotAppear();
}

void SplashScreenController::removeAdsAction() {
    if (const auto output = m_output.lock())
        output->didClickRemoveAds();
}

void SplashScreenController::goToURLForBanner() {
    const bool canClick = isShown(m_outlets.splashScreenPlayerView) ||
                          isShown(m_outlets.interstitialImage) || isShown(m_outlets.closeButton);
    const auto output = m_output.lock();
    if (canClick && output)
        output->didClickOnVideo();
}

void SplashScreenController::soundOnOff(int state) {
    if (const auto output = m_output.lock())
        output->didChangeMuted(state != 0);
}

} // namespace velmora
