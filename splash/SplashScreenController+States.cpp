// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenController.h"

#include "Animator.h"
#include "MainQueue.h"
#include "SplashScreenLayout.h"
#include "Window.h"

#include <utility>

namespace velmora {

namespace {

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
        showPhase(SplashScreenVisibility::Phase::Start);
    else if (state == SplashScreenViewStateVideo)
        showPhase(SplashScreenVisibility::Phase::Video);
    else if (state == SplashScreenViewStateEnd)
        showPhase(SplashScreenVisibility::Phase::End);
}

void SplashScreenController::showPhase(SplashScreenVisibility::Phase phase) {
    setRootHidden(false);
    SplashScreenVisibility::apply(m_outlets, phase,
                                  {m_appearance, m_withouSplash, !m_interstitialUrl.isEmpty()});
    if (m_outlets.urlButton)
        m_outlets.urlButton->setLeadsSomewhere(phase != SplashScreenVisibility::Phase::Start);
    if (m_layout)
        m_layout->apply();
}

void SplashScreenController::setRootHidden(bool hidden) {
    m_isRootHidden = hidden;
    if (m_overlay)
        m_overlay->setHidden(hidden);
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
        showPhase(SplashScreenVisibility::Phase::VideoWithCloseButton);
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
        // Also where the host had fixed the size itself: its own limits hold without ours.
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
