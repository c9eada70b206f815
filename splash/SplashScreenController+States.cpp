#include "splash/SplashScreenController.h"

#include "platform/Animator.h"
#include "platform/MainQueue.h"
#include "platform/Window.h"
#include "splash/SplashScreenLayout.h"

#include <initializer_list>
#include <utility>

namespace velmora {

namespace {

void setHidden(QWidget *element, bool hidden) {
    if (element)
        Animator::setHidden(element, hidden);
}

void setAllHidden(std::initializer_list<QWidget *> elements, bool hidden) {
    for (QWidget *element : elements)
        setHidden(element, hidden);
}

bool isShown(const QWidget *element) {
    return element && !Animator::isHidden(element);
}

} // namespace

bool SplashScreenController::isOnMainThread(void (SplashScreenController::*operation)()) {
    if (MainQueue::isMainThread())
        return true;
    MainQueue::post([weak = weak_from_this(), operation] {
        if (const auto self = weak.lock())
            (self.get()->*operation)();
    });
    return false;
}

void SplashScreenController::swapViewForState(qint64 state) {
    if (state == SplashScreenViewStateStart)
        showStart();
    else if (state == SplashScreenViewStateVideo)
        showVideoControls();
    else if (state == SplashScreenViewStateEnd)
        showEnd();
    else
        return;
    if (m_outlets.urlButton)
        m_outlets.urlButton->setLeadsSomewhere(state != SplashScreenViewStateStart);
    if (m_layout)
        m_layout->apply();
}

void SplashScreenController::setRootHidden(bool hidden) {
    if (m_overlay)
        m_overlay->setHidden(hidden);
}

void SplashScreenController::showStart() {
    for (QWidget *element : {static_cast<QWidget *>(m_outlets.splashScreenPlayerView),
                             static_cast<QWidget *>(m_outlets.timeVideoLabel),
                             static_cast<QWidget *>(m_outlets.videoProgressView),
                             static_cast<QWidget *>(m_outlets.soundButton),
                             static_cast<QWidget *>(m_outlets.closeButton),
                             static_cast<QWidget *>(m_outlets.interstitialImage),
                             static_cast<QWidget *>(m_outlets.removeAdsImageButton)}) {
        if (element)
            Animator::setHiddenNow(element, true);
    }
    setRootHidden(false);
    setHidden(m_outlets.removeAdsButton, m_withouSplash || m_hiddenButtonBeforeVideo);
    setHidden(m_outlets.iconImageView, m_withouSplash || m_hiddenIcon || m_hiddenIconBeforeVideo);
    setHidden(m_outlets.lablesView, m_withouSplash);
    setHidden(m_outlets.bgImage,
              m_withouSplash || m_hiddenBackgroundImage || m_hiddenBackgroundImageBeforeVideo);
}

void SplashScreenController::showVideoControls() {
    setAllHidden({m_outlets.removeAdsButton, m_outlets.iconImageView, m_outlets.lablesView,
                  m_outlets.closeButton, m_outlets.interstitialImage, m_outlets.bgImage},
                 true);
    setHidden(m_outlets.removeAdsImageButton, false);
    setRootHidden(false);
    setAllHidden({m_outlets.splashScreenPlayerView, m_outlets.timeVideoLabel,
                  m_outlets.videoProgressView, m_outlets.soundButton},
                 false);
}

void SplashScreenController::showEnd() {
    const bool hasPicture = !m_interstitialUrl.isEmpty();
    setAllHidden({m_outlets.splashScreenPlayerView, m_outlets.timeVideoLabel,
                  m_outlets.videoProgressView, m_outlets.soundButton, m_outlets.lablesView,
                  m_outlets.removeAdsImageButton},
                 true);
    setRootHidden(false);
    setHidden(m_outlets.iconImageView, hasPicture || m_hiddenIcon || m_hiddenIconAfterVideo);
    setHidden(m_outlets.removeAdsButton, hasPicture || m_hiddenButtonAfterVideo);
    setHidden(m_outlets.closeButton, false);
    setHidden(m_outlets.interstitialImage, !hasPicture);
    setHidden(m_outlets.bgImage,
              hasPicture || m_hiddenBackgroundImage || m_hiddenBackgroundImageAfterVideo);
}

void SplashScreenController::showStartScreen() {
    if (!isOnMainThread(&SplashScreenController::showStartScreen))
        return;
    enterStartScreen();
}

void SplashScreenController::showStartVideoWithoutStartScreen() {
    if (!isOnMainThread(&SplashScreenController::showStartVideoWithoutStartScreen))
        return;
    m_withouSplash = true;
    enterStartScreen();
}

void SplashScreenController::enterStartScreen() {
    m_canShowEnd = true;
    m_readInterstitial = {};
    if (Window *facts = Window::of(m_window)) {
        m_oldWindowCollection = facts->collectionBehavior();
        m_oldResize = facts->isResizable();
        facts->setStyleMask(facts->styleMask() & ~Window::Resizable);
        facts->setCollectionBehavior(facts->collectionBehavior() & Window::FullScreenAuxiliary);
    }
    swapViewForState(SplashScreenViewStateStart);
}

void SplashScreenController::showEndScreen() {
    if (!isOnMainThread(&SplashScreenController::showEndScreen))
        return;
    if (!m_canShowEnd) {
        // The video plays on.
        setHidden(m_outlets.closeButton, false);
        setHidden(m_outlets.timeVideoLabel, true);
        setHidden(m_outlets.videoProgressView, true);
        return;
    }
    // Shown twice where no video plays: with the close button and when the video has ended.
    const bool isRead = std::exchange(m_readInterstitial, m_interstitialUrl) == m_interstitialUrl;
    if (!m_interstitialUrl.isEmpty() && !isRead && m_outlets.interstitialImage)
        m_outlets.interstitialImage->setImageFile(m_interstitialUrl.toLocalFile());
    m_withouSplash = false;
    swapViewForState(SplashScreenViewStateEnd);
}

void SplashScreenController::hide() {
    removePlayer();
    if (Window *facts = Window::of(m_window)) {
        if (m_oldResize)
            facts->setStyleMask(facts->styleMask() | Window::Resizable);
        // Whatever it was before: hosts rely on the fixed value.
        facts->setCollectionBehavior(Window::FullScreenPrimary);
    }
    setRootHidden(true);
}

void SplashScreenController::goToURLForBanner() {
    if (!isShown(m_outlets.splashScreenPlayerView) && !isShown(m_outlets.interstitialImage) &&
        !isShown(m_outlets.closeButton))
        return;
    if (const auto output = m_output.lock())
        output->didClickOnVideo();
}

} // namespace velmora
