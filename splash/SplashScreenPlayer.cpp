// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenPlayer.h"

#include <utility>

namespace velmora {

void SplashScreenPlayer::open(const QUrl &url, VideoView *view, std::function<void()> ended,
                              std::function<void()> failed) {
    m_view = view;
    closeAndClear();
    VideoPlayer::Handlers handlers;
    handlers.frameAvailable = [this] {
        if (!m_view)
            return;
        m_view->showFrame(m_player->frame());
        // With each picture, because a window may have another scale after it was moved.
        m_player->setPlace(m_view->pixelSize());
    };
    handlers.ended = std::move(ended);
    handlers.failed = std::move(failed);
    m_player = std::make_unique<VideoPlayer>(std::move(handlers));
    m_player->setPlace(view->pixelSize());
    m_player->load(url);
}

void SplashScreenPlayer::playFromStart() {
    if (!m_player)
        return;
    m_player->setMuted(m_muted);
    m_player->seekToStart();
    m_player->play();
}

void SplashScreenPlayer::play() {
    if (m_player)
        m_player->play();
}

void SplashScreenPlayer::pause() {
    if (m_player)
        m_player->pause();
}

void SplashScreenPlayer::setMuted(bool muted) {
    m_muted = muted;
    if (m_player)
        m_player->setMuted(muted);
}

double SplashScreenPlayer::seconds() const {
    return m_player ? m_player->durationSeconds() : 0;
}

void SplashScreenPlayer::close() {
    m_player.reset();
}

void SplashScreenPlayer::closeAndClear() {
    close();
    if (m_view)
        m_view->showFrame({});
}

} // namespace velmora
