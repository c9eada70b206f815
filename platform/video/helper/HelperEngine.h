// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "HelperProcess.h"
#include "VideoEngine.h"

#include <condition_variable>
#include <memory>
#include <mutex>

namespace velmora {

/// Plays a video in a helper process. The functions send messages and wait for nothing; the
/// pictures are in memory that is shared with the helper, which nobody copies. What the helper
/// sends is not trusted, as the video may have taken it over.
class HelperEngine final : public VideoEngine {
public:
    HelperEngine(VideoEngineListener *listener, std::unique_ptr<HelperProcess> process);
    ~HelperEngine() override;

    /// Does nothing: a helper warms up when it starts.
    void warmUp() override {}
    void load(const VideoSource &source) override;
    /// Does nothing: the helper's engine is told when it is prepared.
    void opened() override {}
    void play() override;
    void pause() override;
    void checkOpening() override;
    void seek(double seconds) override;
    void setMuted(bool muted) override;
    void setPlace(const QSize &place) override;
    double durationSeconds() override;

private:
    using Kind = HelperMessage::Kind;

    void send(Kind kind, bool flag = false, double position = 0);

    // On the thread that receives.
    void receiveAll();
    void take(const HelperMessage &message);
    void takeFrame(const HelperMessage &message);
    void takeRemark(const HelperMessage &message);

    VideoEngineListener *const m_listener;
    const std::unique_ptr<HelperProcess> m_process;
    int m_remarks = 0;

    std::mutex m_mutex;
    std::condition_variable m_stopped;
    bool m_isReceiving = false;
    bool m_isEnding = false;
    double m_duration = 0;
};

} // namespace velmora
