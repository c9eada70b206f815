// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "HelperChannel.h"
#include "SlotMemory.h"
#include "VideoEngine.h"

#include <QtCore/QElapsedTimer>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace velmora {

/// The helper's work: runs an engine on the main thread as the library's messages say, and sends
/// what the engine reports. A thread of its own receives the messages and ends the process when the
/// library is gone.
class EngineHost final : private VideoEngineListener {
public:
    EngineHost(HelperChannel &channel, SlotMemory &memory);

    /// Does not return. Starts no thread until a video is loaded, because access to files can only
    /// be restricted for one thread and those that it starts later.
    [[noreturn]] void run();

private:
    using Kind = HelperMessage::Kind;

    void loadVideo(const HelperMessage &message, int file);
    void startReceiving();
    [[noreturn]] void receiveAll();
    bool receive(HelperMessage *message, int *file = nullptr);
    void obey(const HelperMessage &message);
    void post(std::function<void()> work);
    void send(Kind kind, double position = 0, double quietFor = 0);
    void sendText(Kind kind, const QString &text, bool flag = false);

    // On any thread.
    void prepared() override;
    void frame(const QImage &picture) override;
    void moved(double position, double quietFor) override;
    void ended() override;
    void failed(const QString &reason, bool soundIsAtFault) override;
    void remark(const QString &text) override;

    HelperChannel &m_channel;
    SlotMemory &m_memory;
    std::unique_ptr<VideoEngine> m_engine;
    bool m_isReceiving = false;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_work;
    QElapsedTimer m_lastMove;
};

} // namespace velmora
