// SPDX-License-Identifier: Apache-2.0
#include "HelperEngine.h"

#include "BackgroundThread.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cmath>

namespace velmora {

namespace {

constexpr int MostRemarks = 20;

// A slot that is being shown. When the last image that uses it is gone, the helper may decode
// another picture into it.
struct ShownSlot {
    std::shared_ptr<PictureSlots> pictures;
    std::shared_ptr<HelperChannel> channel;
    int index;

    ~ShownSlot() {
        HelperMessage message;
        message.kind = HelperMessage::Kind::Release;
        message.slot = index;
        channel->send(message);
    }
};

void destroy(void *slot) {
    delete static_cast<ShownSlot *>(slot);
}

double sane(double seconds) {
    return std::isfinite(seconds) && seconds > 0 ? seconds : 0;
}

} // namespace

HelperEngine::HelperEngine(VideoEngineListener *listener, std::unique_ptr<HelperProcess> process)
    : m_listener(listener), m_process(std::move(process)) {}

HelperEngine::~HelperEngine() {
    std::unique_lock lock(m_mutex);
    m_isEnding = true;
    m_process->channel()->hangUp();
    m_stopped.wait(lock, [this] { return !m_isReceiving; });
}

void HelperEngine::load(const VideoSource &source) {
    const int file = ::open(QFile::encodeName(source.path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return m_listener->failed(QStringLiteral("it cannot be opened"), false);
    HelperMessage message;
    message.kind = Kind::Load;
    message.flag = source.sound;
    message.width = source.place.width();
    message.height = source.place.height();
    m_process->channel()->send(message, file);
    ::close(file);
    m_isReceiving = true;
    QString error;
    if (!startBackgroundThread(
            "velmora-frames", AtExit::Ignores, [this] { receiveAll(); }, &error)) {
        m_isReceiving = false;
        m_listener->failed(error, false);
    }
}

void HelperEngine::send(Kind kind, bool flag, double position) {
    HelperMessage message;
    message.kind = kind;
    message.flag = flag;
    message.position = position;
    m_process->channel()->send(message);
}

void HelperEngine::play() {
    send(Kind::Play);
}

void HelperEngine::pause() {
    send(Kind::Pause);
}

void HelperEngine::checkOpening() {
    send(Kind::CheckOpening);
}

void HelperEngine::seek(double seconds) {
    send(Kind::Seek, false, seconds);
}

void HelperEngine::setMuted(bool muted) {
    send(Kind::SetMuted, muted);
}

void HelperEngine::setPlace(const QSize &place) {
    HelperMessage message;
    message.kind = Kind::SetPlace;
    message.width = place.width();
    message.height = place.height();
    m_process->channel()->send(message);
}

double HelperEngine::durationSeconds() {
    const std::lock_guard lock(m_mutex);
    return m_duration;
}

void HelperEngine::receiveAll() {
    HelperMessage message;
    while (m_process->channel()->receive(&message))
        take(message);
    std::unique_lock lock(m_mutex);
    if (!m_isEnding) {
        lock.unlock();
        m_listener->failed(QStringLiteral("the video helper ended"), false);
        lock.lock();
    }
    m_isReceiving = false;
    // Under the lock, because the destructor may destroy the condition once it has the lock.
    m_stopped.notify_all();
}

void HelperEngine::take(const HelperMessage &message) {
    switch (message.kind) {
    case Kind::Prepared: {
        {
            const std::lock_guard lock(m_mutex);
            m_duration = sane(message.position);
        }
        return m_listener->prepared();
    }
    case Kind::Frame:
        return takeFrame(message);
    case Kind::Moved:
        return m_listener->moved(sane(message.position), sane(message.quietFor));
    case Kind::Ended:
        return m_listener->ended();
    case Kind::Failed:
        return m_listener->failed(message.readText(), message.flag != 0);
    case Kind::Remark:
        return takeRemark(message);
    case Kind::Crashed:
        return m_listener->failed(
            QStringLiteral("the video helper crashed (signal %1)").arg(message.slot), false);
    default:
        return;
    }
}

void HelperEngine::takeFrame(const HelperMessage &message) {
    if (message.slot < 0 || message.slot >= PictureSlots::Count ||
        !PictureSlots::fits(message.width, message.height, message.bytesPerLine))
        return;
    auto *shown = new ShownSlot{m_process->pictures(), m_process->channel(), message.slot};
    const uchar *pixels = shown->pictures->slot(message.slot);
    m_listener->frame({pixels, message.width, message.height, message.bytesPerLine,
                       QImage::Format_RGB32, destroy, shown});
}

void HelperEngine::takeRemark(const HelperMessage &message) {
    if (m_remarks++ < MostRemarks)
        m_listener->remark(message.readText());
}

} // namespace velmora
