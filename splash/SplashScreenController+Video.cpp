// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenController.h"

#include <Velmora/Support.h>

#include <utility>

namespace velmora {

void SplashScreenController::showVideo() {
    if (!isOnMainThread(&SplashScreenController::showVideo))
        return;
    m_canShowEnd = false;
    initVideoLayer();
    swapViewForState(SplashScreenViewStateVideo);
    if (m_outlets.soundButton)
        m_outlets.soundButton->setState(m_muted ? 1 : 0);
    if (!m_playerlayer)
        return;
    m_playerlayer->setMuted(m_muted);
    m_playerlayer->seekToStart();
    m_playerlayer->play();
}

void SplashScreenController::initVideoLayer() {
    m_playerlayer.reset();
    VideoView *shown = m_outlets.splashScreenPlayerView;
    if (!shown || !m_overlay || !m_overlay->superview()) {
        LOG(QStringLiteral("the video is not played: its window is gone"));
        return;
    }
    shown->showFrame({});
    const auto weak = weak_from_this();
    VideoPlayer::Handlers handlers;
    handlers.frameAvailable = [weak] {
        const auto self = weak.lock();
        if (self && self->m_playerlayer && self->m_outlets.splashScreenPlayerView)
            self->m_outlets.splashScreenPlayerView->showFrame(self->m_playerlayer->frame());
    };
    handlers.ended = [weak] {
        if (const auto self = weak.lock())
            self->didVideoEnded();
    };
    m_playerlayer = std::make_unique<VideoPlayer>(std::move(handlers));
    m_playerlayer->load(m_videoUrl);
}

void SplashScreenController::removePlayer() {
    if (m_playerlayer && m_playerlayer->status() != VideoPlayer::Status::Unknown)
        m_playerlayer->pause();
    // The last picture stays in the view, which may be fading out.
    m_playerlayer.reset();
}

void SplashScreenController::removeVideoLayer() {
    m_playerlayer.reset();
    if (m_outlets.splashScreenPlayerView)
        m_outlets.splashScreenPlayerView->showFrame({});
}

void SplashScreenController::didVideoEnded() {
    m_canShowEnd = true;
    if (const auto output = m_output.lock())
        output->didVideoEnded();
}

double SplashScreenController::videoSeconds() const {
    return m_playerlayer ? m_playerlayer->durationSeconds() : 0;
}

void SplashScreenController::setMuted(bool muted) {
    m_muted = muted;
    if (m_playerlayer)
        m_playerlayer->setMuted(muted);
}

void SplashScreenController::pauseShowVideo() {
    if (m_playerlayer)
        m_playerlayer->pause();
    pauseProgressViews();
}

void SplashScreenController::continueShowVideo() {
    if (m_playerlayer)
        m_playerlayer->play();
    compliteProgressViews();
}

void SplashScreenController::pauseShow() {
    pauseProgressViews();
}

void SplashScreenController::continueShow() {
    compliteProgressViews();
}

void SplashScreenController::pauseProgressViews() {
    forEachRing([](TimeProgressView &ring) { ring.stop(); });
}

void SplashScreenController::compliteProgressViews() {
    forEachRing([](TimeProgressView &ring) { ring.complite(); });
}

void SplashScreenController::startTimerViewFromSec(qint64 fromSec, qint64 endSec) {
    if (m_outlets.lablesView && m_outlets.lablesView->timeProgressView())
        m_outlets.lablesView->timeProgressView()->startTimerFromSec(float(fromSec), float(endSec));
}

void SplashScreenController::startVideoTimerViewFromSec(qint64 fromSec, qint64 endSec) {
    if (m_outlets.videoProgressView)
        m_outlets.videoProgressView->startTimerFromSec(float(fromSec), float(endSec));
}

} // namespace velmora
