// SPDX-License-Identifier: Apache-2.0
#include "EngineHost.h"

#include "BackgroundThread.h"
#include "GstVideoEngine.h"
#include "Sandbox.h"

#include <unistd.h>

#include <cstdlib>
#include <utility>

namespace velmora {

namespace {

constexpr int MoveIntervalMs = 100;

} // namespace

EngineHost::EngineHost(HelperChannel &channel, SlotMemory &memory)
    : m_channel(channel), m_memory(memory) {}

void EngineHost::run() {
    send(Kind::Ready);
    QString error;
    m_engine = GstVideoEngine::create(this, &error);
    if (m_engine)
        m_engine->warmUp();

    HelperMessage message;
    int file = -1;
    if (!receive(&message, &file))
        _exit(EXIT_SUCCESS);
    if (message.kind != Kind::Load || file < 0)
        _exit(EXIT_FAILURE);
    if (m_engine)
        loadVideo(message, file);
    else
        failed(error, false);
    startReceiving();

    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return !m_work.empty(); });
        const auto work = std::move(m_work.front());
        m_work.pop_front();
        lock.unlock();
        work();
        lock.lock();
    }
}

void EngineHost::loadVideo(const HelperMessage &message, int file) {
    VideoSource source;
    source.path = QStringLiteral("/proc/self/fd/%1").arg(file);
    source.sound = message.flag != 0;
    source.place = {message.width, message.height};
    source.pictureMemory = &m_memory;
    source.aboutToRead = [this, file] {
        for (const QString &fault : Sandbox::enter(file))
            remark(fault);
        startReceiving();
    };
    m_engine->load(source);
}

void EngineHost::startReceiving() {
    if (std::exchange(m_isReceiving, true))
        return;
    if (!startBackgroundThread(
            "velmora-receive", AtExit::Ignores, [this] { receiveAll(); }, nullptr))
        _exit(EXIT_FAILURE);
}

void EngineHost::receiveAll() {
    HelperMessage message;
    while (receive(&message))
        obey(message);
    _exit(EXIT_SUCCESS);
}

// A process that the host has forked may hold its end of the channel open when the host is gone.
bool EngineHost::receive(HelperMessage *message, int *file) {
    return m_channel.waitForMessageOrEnd(HelperHostFile) && m_channel.receive(message, file);
}

void EngineHost::obey(const HelperMessage &message) {
    switch (message.kind) {
    case Kind::Play:
        return post([this] { m_engine->play(); });
    case Kind::Pause:
        return post([this] { m_engine->pause(); });
    case Kind::CheckOpening:
        return post([this] { m_engine->checkOpening(); });
    case Kind::Seek:
        return post([this, position = message.position] { m_engine->seek(position); });
    case Kind::SetMuted:
        return post([this, muted = message.flag != 0] { m_engine->setMuted(muted); });
    case Kind::SetPlace:
        return post(
            [this, place = QSize(message.width, message.height)] { m_engine->setPlace(place); });
    case Kind::Release:
        // At once: the engine may be waiting for memory.
        return m_memory.letGo(message.slot);
    default:
        return;
    }
}

void EngineHost::post(std::function<void()> work) {
    {
        const std::lock_guard lock(m_mutex);
        m_work.push_back(std::move(work));
    }
    m_wake.notify_one();
}

void EngineHost::send(Kind kind, double position, double quietFor) {
    HelperMessage message;
    message.kind = kind;
    message.position = position;
    message.quietFor = quietFor;
    m_channel.send(message);
}

void EngineHost::sendText(Kind kind, const QString &text, bool flag) {
    HelperMessage message;
    message.kind = kind;
    message.flag = flag;
    message.setText(text);
    m_channel.send(message);
}

void EngineHost::prepared() {
    post([this] {
        m_engine->opened();
        send(Kind::Prepared, m_engine->durationSeconds());
    });
}

void EngineHost::frame(const QImage &picture) {
    HelperMessage message;
    message.kind = Kind::Frame;
    message.slot = m_memory.keep(picture);
    if (message.slot < 0)
        return; // the library has not released any slot; the next picture may find one
    message.width = picture.width();
    message.height = picture.height();
    message.bytesPerLine = int(picture.bytesPerLine());
    m_channel.send(message);
}

// The library needs to know about twice a second, and this is called for each picture and each
// piece of sound.
void EngineHost::moved(double position, double quietFor) {
    {
        const std::lock_guard lock(m_mutex);
        const bool isSoon = m_lastMove.isValid() && !m_lastMove.hasExpired(MoveIntervalMs);
        if (isSoon && quietFor * 1000 < MoveIntervalMs)
            return;
        m_lastMove.start();
    }
    send(Kind::Moved, position, quietFor);
}

void EngineHost::ended() {
    send(Kind::Ended);
}

void EngineHost::failed(const QString &reason, bool soundIsAtFault) {
    sendText(Kind::Failed, reason, soundIsAtFault);
}

void EngineHost::remark(const QString &text) {
    sendText(Kind::Remark, text);
}

} // namespace velmora
