// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstPointer.h"
#include "VideoEngine.h"

#include <atomic>
#include <memory>

namespace velmora {

/// Reads the messages on a pipeline's bus and tells an engine's listener what they mean: prepared,
/// ended, failed, and remarks about missing plugins. The messages come on the pipeline's threads.
class GstBusReader {
public:
    explicit GstBusReader(VideoEngineListener *listener);
    /// As stop().
    ~GstBusReader();

    /// Reads the messages of a pipeline from now on. Once.
    void start(GstElement *pipeline);
    /// Waits for a message that is being read; none is read afterwards.
    void stop();

    /// True from the listener's prepared() on. Any thread.
    bool isPrepared() const { return m_isPrepared; }

    /// Tells that the pipeline has pictures. Otherwise a missing video decoder is a failure. Any
    /// thread.
    void setHasPictures() { m_hasPictures = true; }

    /// Tells which element plays the sound, so that its failure can be told from others. It must
    /// exist as long as the pipeline. Any thread.
    void setSoundSink(GstElement *sink) { m_soundSink = sink; }

private:
    struct Tap;

    static GstBusSyncReply receive(GstBus *bus, GstMessage *message, gpointer tap);
    void read(GstMessage *message);
    void readError(GstMessage *message);
    void readMissingPlugin(GstMessage *message);

    VideoEngineListener *const m_listener;
    const std::shared_ptr<Tap> m_tap;
    std::atomic<bool> m_isPrepared = false;
    std::atomic<bool> m_hasPictures = false;
    std::atomic<GstElement *> m_soundSink = nullptr;
    // The text about a missing plugin, that for pictures preferred. Guarded by the tap's mutex.
    QString m_missing;
    bool m_isPictureMissing = false;
};

} // namespace velmora
