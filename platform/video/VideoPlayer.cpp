// SPDX-License-Identifier: Apache-2.0
#include "VideoPlayer.h"

#include "Log.h"
#include "VideoSession.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>

#include <utility>

namespace velmora {

namespace {

using namespace std::chrono_literals;

constexpr double WatchInterval = 0.5;
constexpr auto LongestSilence = 2s;
// Before any progress: the media framework may have to scan all its plugins first.
constexpr auto LongestStarting = 10s;
constexpr int MostRestarts = 2;

void call(const std::function<void()> &handler) {
    // A copy, because the handler may destroy the player, and its handlers with it.
    if (const auto copy = handler)
        copy();
}

} // namespace

VideoPlayer::VideoPlayer(Handlers handlers) : m_handlers(std::move(handlers)) {}

VideoPlayer::~VideoPlayer() {
    close();
}

void VideoPlayer::warmUp() {
    VideoSession::warmUp();
}

void VideoPlayer::load(const QUrl &url) {
    close();
    m_url = url;
    m_status = Status::Unknown;
    m_playing = false;
    m_atEnd = false;
    m_duration = 0;
    m_frame = {};
    m_resumeAt = 0;
    m_restarts = 0;
    open(true);
}

void VideoPlayer::open(bool sound) {
    m_engineReady = false;
    m_session =
        std::make_shared<VideoSession>(this, VideoSource{m_url.toLocalFile(), sound, m_place});
    m_session->begin();
    m_session->run([muted = m_muted](VideoEngine &engine) { engine.setMuted(muted); });
    m_movesSeen = 0;
    m_lastMove = SteadyClock::now();
    watch();
}

void VideoPlayer::close() {
    if (m_session)
        m_session->close();
    m_session.reset();
    watch();
}

void VideoPlayer::play() {
    if (m_playing || m_atEnd || !m_session)
        return;
    m_playing = true;
    watch();
    // A restarted engine that has to seek first is told to play by becameReady().
    if (m_engineReady || m_resumeAt == 0)
        m_session->run([](VideoEngine &engine) { engine.play(); });
}

void VideoPlayer::pause() {
    if (!m_playing)
        return;
    m_playing = false;
    watch();
    m_session->run([](VideoEngine &engine) { engine.pause(); });
}

void VideoPlayer::seekToStart() {
    if (!m_session)
        return;
    m_atEnd = false;
    m_lastMove = SteadyClock::now();
    if (m_engineReady)
        m_session->seek(0);
    else if (std::exchange(m_resumeAt, 0) > 0 && m_playing)
        m_session->run([](VideoEngine &engine) { engine.play(); });
}

void VideoPlayer::setMuted(bool muted) {
    m_muted = muted;
    if (m_session)
        m_session->run([muted](VideoEngine &engine) { engine.setMuted(muted); });
}

void VideoPlayer::setPlace(const QSize &place) {
    if (std::exchange(m_place, place) == place || !m_session)
        return;
    m_session->setPlace(place);
}

bool VideoPlayer::event(QEvent *event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    if (m_session)
        apply(m_session->takeUpdate());
    return true;
}

void VideoPlayer::apply(const VideoUpdate &update) {
    const QPointer<VideoPlayer> self(this);
    const std::shared_ptr<VideoSession> session = m_session;
    const auto isStale = [&] { return !self || m_session != session; };
    if (update.duration)
        becameReady(*update.duration);
    if (!update.frame.isNull() && (m_engineReady || m_resumeAt == 0)) {
        const bool first = m_frame.isNull();
        m_frame = update.frame;
        if (first)
            call(m_handlers.firstFrame);
        if (!isStale())
            call(m_handlers.frameAvailable);
        if (isStale())
            return;
    }
    if (update.ended && !m_atEnd) {
        m_atEnd = true;
        pause();
        call(m_handlers.ended);
        if (isStale())
            return;
    }
    if (!update.failure.isEmpty() && !(update.soundIsAtFault && restart(update.failure)))
        fail(update.failure);
}

void VideoPlayer::becameReady(double duration) {
    m_status = Status::Ready;
    m_duration = duration;
    m_engineReady = true;
    m_lastMove = SteadyClock::now();
    watch();
    if (m_resumeAt == 0)
        return;
    m_session->seek(std::exchange(m_resumeAt, 0));
    if (m_playing)
        m_session->run([](VideoEngine &engine) { engine.play(); });
}

// The watchdog runs while progress is expected: until the video is open, and while it plays.
void VideoPlayer::watch() {
    const bool needed = m_session && (m_playing || !m_engineReady);
    if (needed && !m_watchTimer) {
        m_lastMove = SteadyClock::now();
        m_watchTimer =
            Timer::scheduled(WatchInterval, Timer::Kind::Repeating, [this] { watchTick(); });
    } else if (!needed && m_watchTimer) {
        m_watchTimer->invalidate();
        m_watchTimer.reset();
    }
}

// Measures with the real clock, also in tests, because media play in real time. Counts the engine's
// progress and not the arrived pictures, which a busy main thread would delay.
void VideoPlayer::watchTick() {
    const VideoProgress progress = m_session->progress();
    const auto now = SteadyClock::now();
    if (!m_engineReady)
        m_session->run([](VideoEngine &engine) { engine.checkOpening(); });
    if (std::exchange(m_movesSeen, progress.moves) != progress.moves) {
        m_lastMove = now;
        return;
    }
    const auto quietFor = std::chrono::duration<double>(progress.quietFor);
    const auto longest = progress.moves > 0 ? LongestSilence : LongestStarting;
    if (now - m_lastMove < longest + quietFor)
        return;
    const QString reason = QStringLiteral("silent for too long");
    if (!restart(reason))
        fail(reason);
}

bool VideoPlayer::restart(const QString &reason) {
    if (m_restarts == MostRestarts)
        return false;
    ++m_restarts;
    const double position = m_engineReady ? m_session->progress().position : m_resumeAt;
    log(QStringLiteral("restarted without sound at %1 s: %2").arg(position).arg(reason));
    m_session->close();
    // A video at its end can only be played again from its start.
    m_resumeAt = m_atEnd ? 0 : position;
    open(false);
    if (m_playing && m_resumeAt == 0)
        m_session->run([](VideoEngine &engine) { engine.play(); });
    return true;
}

void VideoPlayer::fail(const QString &reason) {
    log(QStringLiteral("cannot be played: %1").arg(reason));
    m_status = Status::Failed;
    m_playing = false;
    close();
    call(m_handlers.failed);
}

void VideoPlayer::log(const QString &text) const {
    Log::write(
        QStringLiteral("video %1: %2").arg(m_url.toDisplayString(QUrl::PreferLocalFile), text));
}

} // namespace velmora
