// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstBusReader.h"
#include "GstDecoder.h"
#include "GstPictureSize.h"
#include "GstPointer.h"
#include "VideoEngine.h"

#include <QtCore/QElapsedTimer>

#include <gst/app/gstappsink.h>

#include <atomic>
#include <memory>
#include <mutex>

namespace velmora {

/// Plays with GStreamer: decodes in software, plays at the speed of the sound device if there is
/// one, and calls the listener with each picture when it is due, on a thread of the pipeline.
class GstVideoEngine final : public VideoEngine {
public:
    /// Makes an engine. Initialises GStreamer first if necessary.
    /// @param error receives the reason when the result is null
    static std::unique_ptr<GstVideoEngine> create(VideoEngineListener *listener, QString *error);
    ~GstVideoEngine() override;

    void warmUp() override;
    void load(const VideoSource &source) override;
    void checkOpening() override;
    void opened() override;
    void play() override;
    void pause() override;
    void seek(double seconds) override;
    void setMuted(bool muted) override;
    void setPlace(const QSize &place) override;
    double durationSeconds() override;

private:
    struct Callbacks;

    explicit GstVideoEngine(VideoEngineListener *listener);

    // Called on the pipeline's threads.
    void addStream(GstPad *pad);
    void showPictures(GstPad *pad);
    void playSound(GstPad *pad);
    GstPointer<GstElement> takeSoundDevice();
    GstElement *addPart(const char *description);
    void showSample(GstSample *sample);
    void soundMoved(GstBuffer *buffer);

    // Also called on the pipeline's threads.
    void applyMuted();

    void openSoundDevice();
    void closeUnusedSoundDevice();
    void setState(GstState state);
    void waitForState();

    VideoEngineListener *m_listener;
    GstDecoder m_decoder;
    GstBusReader m_bus;
    GstPictureSize m_pictureSize;
    GstPointer<GstElement> m_pipeline;
    GstPointer<GstAllocator> m_allocator;
    // Null when no sound is wanted or no device answers.
    GstPointer<GstElement> m_soundDevice;
    std::mutex m_soundMutex;
    bool m_wantsSound = true;
    bool m_wantsToPlay = false;
    bool m_isOpened = false;
    QElapsedTimer m_idleTime;
    std::atomic<bool> m_muted = false;
    std::atomic<bool> m_hasPictures = false;
    std::atomic<bool> m_hasSound = false;
};

} // namespace velmora
