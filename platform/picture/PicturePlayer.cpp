// SPDX-License-Identifier: Apache-2.0
#include "PicturePlayer.h"

#include "FirstPicture.h"
#include "Log.h"
#include "MainQueue.h"
#include "PictureFile.h"
#include "ProcessRoot.h"
#include "SerialQueue.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace velmora {

namespace {

using namespace std::chrono_literals;

// Two queues, so that a large still does not hold up animations. What nobody will see is not
// decoded.
class AnimationQueue : public SerialQueue {
public:
    // Its thread stays while frames are due, and with it the heap that malloc gives a thread: a
    // heap that another thread leaves may keep the size of all frames.
    AnimationQueue() : SerialQueue("velmora-frames", AtEnd::Drops, 10s) {}
};

class StillQueue : public SerialQueue {
public:
    StillQueue() : SerialQueue("velmora-stills", AtEnd::Drops) {}
};

void runOnQueue(bool isAnimation, std::function<void()> work) {
    if (isAnimation)
        ProcessRoot::get<AnimationQueue>().run(std::move(work));
    else
        ProcessRoot::get<StillQueue>().run(std::move(work));
}

} // namespace

PicturePlayer::PicturePlayer(std::shared_ptr<FrameDecoder> decoder, std::function<void()> changed)
    : m_decoder(std::move(decoder)), m_changed(std::move(changed)) {
    PictureFile::prepare();
}

PicturePlayer::~PicturePlayer() {
    Timer::cancel(m_timer);
}

void PicturePlayer::setPlaying(bool playing) {
    m_isPlaying = playing;
    if (!playing)
        Timer::cancel(m_timer);
}

void PicturePlayer::dropFrames() {
    if (m_frame.isNull())
        return;
    Timer::cancel(m_timer);
    m_frame = {};
    m_isDrawn = false;
    m_hasDropped = true;
    runOnQueue(m_decoder->isAnimation(), [decoder = m_decoder] { decoder->dropFrames(); });
}

void PicturePlayer::drawn(const QSize &size) {
    m_size = size;
    m_isDrawn = true;
    if (!m_frame.isNull())
        FirstPicture::settle();
    decode();
}

void PicturePlayer::decode() {
    const bool hasFrame = !m_frame.isNull();
    const bool isAgain = m_hasDropped || (hasFrame && m_frameSize != m_size);
    const bool isNextDue = m_decoder->isAnimation() && m_isPlaying && !m_timer;
    const bool isWanted = isAgain || (!m_hasEnded && m_isDrawn && (!hasFrame || isNextDue));
    if (m_isDecoding || !isWanted)
        return;
    m_isDecoding = true;
    m_asked = TimeSource::current().now();
    runOnQueue(m_decoder->isAnimation(),
               [this, decoder = m_decoder, size = m_size, isAgain, alive = std::weak_ptr(m_alive)] {
                   if (alive.expired())
                       return;
                   const Result result = isAgain ? decoder->again(size) : decoder->next(size);
                   MainQueue::post([this, result, size, isAgain, alive] {
                       if (!alive.expired())
                           decoded(result, size, isAgain);
                   });
               });
}

void PicturePlayer::decoded(const Result &result, const QSize &size, bool isAgain) {
    m_isDecoding = false;
    if (m_hasDropped && !isAgain)
        return;
    m_hasDropped = false;
    m_frameSize = size;
    if (!result) {
        m_hasEnded = true;
        if (hasFailed()) {
            Log::write(QStringLiteral("picture not drawn: %1").arg(m_decoder->error()));
            tellOfChange();
        }
        return;
    }
    ++m_frameCount;
    present(*result);
}

void PicturePlayer::present(const FrameDecoder::Frame &frame) {
    // A frame that follows another was due when it was asked for.
    const TimeSource::Duration late =
        m_frame.isNull() ? TimeSource::Duration::zero() : TimeSource::current().now() - m_asked;
    m_frame = QPixmap::fromImage(frame.image, Qt::NoOpaqueDetection);
    m_isDrawn = false;
    Timer::cancel(m_timer);
    if (m_decoder->isAnimation() && !m_hasEnded && m_isPlaying) {
        const std::chrono::duration<double> wait = std::chrono::milliseconds(frame.delayMs) - late;
        m_timer = Timer::scheduled(std::max(wait.count(), 0.0), Timer::Kind::OneShot, [this] {
            m_timer.reset();
            decode();
        });
        m_timer->setFiresDuringTracking();
    }
    tellOfChange();
}

void PicturePlayer::tellOfChange() {
    // A copy: the view may replace this player inside the call.
    const auto changed = m_changed;
    changed();
}

} // namespace velmora
