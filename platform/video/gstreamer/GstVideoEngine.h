// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "GstPointer.h"
#include "VideoEngine.h"

#include <QtCore/QElapsedTimer>

#include <gst/app/gstappsink.h>

#include <atomic>
#include <memory>

namespace velmora {

/// Plays with GStreamer: decodes in software, keeps time by the sound device where there is
/// one, and hands each picture over at its time, on a thread of the pipeline's.
class GstVideoEngine final : public VideoEngine {
public:
    explicit GstVideoEngine(VideoEngineListener *listener);
    ~GstVideoEngine() override;

    void warmUp() override;
    void load(const VideoSource &source) override;
    void checkOpening() override;
    void opened() override;
    void play() override;
    void pause() override;
    void seek(double seconds) override;
    void setMuted(bool muted) override;
    double durationSeconds() override;

private:
    struct BusTap;
    struct Callbacks;

    bool accepts(const GstCaps *caps);
    void decoded(GstPad *pad);
    void showPictures(GstPad *pad);
    void playSound(GstPad *pad);
    GstElement *addPart(const char *description);
    void applyMuted();
    void showSample(GstSample *sample);
    void soundMoved(GstBuffer *buffer);

    void heard(GstMessage *message);
    void heardError(GstMessage *message);
    void heardMissing(GstMessage *message);
    void setState(GstState state);
    void settle();

    VideoEngineListener *m_listener;
    GstPointer<GstElement> m_pipeline;
    std::shared_ptr<BusTap> m_tap;
    bool m_wantsSound = true;
    bool m_wantsToPlay = false;
    bool m_isOpened = false;
    QElapsedTimer m_idleTime;
    std::atomic<bool> m_muted = false;
    std::atomic<bool> m_isPrepared = false;
    std::atomic<bool> m_isSmall = false;
    std::atomic<bool> m_hasPictures = false;
    std::atomic<bool> m_hasSound = false;
    // What plays the sound; in the pipeline and kept by it.
    std::atomic<GstElement *> m_soundSink = nullptr;
    // What a package is missing for, from the bus; guarded by the tap.
    QString m_missing;
    bool m_isPictureMissing = false;
};

} // namespace velmora
