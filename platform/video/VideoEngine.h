// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

namespace velmora {

/// What an engine is to play.
struct VideoSource {
    /// A regular file that is not empty; its content is untrusted.
    QString path;
    /// Without sound, no sound device is touched.
    bool sound = true;
};

/// Hears of an engine's playback, on any thread, from load() until the engine's destructor
/// returns.
class VideoEngineListener {
public:
    /// The first picture (or sound) is at hand; told once.
    virtual void prepared() = 0;
    /// A picture to show now. Its pixels are the engine's and live as long as an image uses
    /// them.
    virtual void frame(const QImage &picture) = 0;
    /// The stream has moved on, or the opening of it.
    /// @param position seconds from the start of the media
    /// @param quietFor seconds for which nothing more need come
    virtual void moved(double position, double quietFor) = 0;
    /// The end was reached while playing.
    virtual void ended() = 0;
    /// Playback is over for good.
    /// @param soundIsAtFault true when it may well play without sound
    virtual void failed(const QString &reason, bool soundIsAtFault) = 0;
    /// Something that a developer may want to know and that does not end playback.
    virtual void remark(const QString &text) = 0;

protected:
    ~VideoEngineListener() = default;
};

/// A system's way of playing one video. Used on one thread, which it may block; lives in the
/// video module, so that a host that shows no video loads no media framework.
///
/// The engine over GStreamer stands in linux/gstreamer. Systems without it want a second one
/// over Qt Multimedia: player and sink made, used and destroyed on the engine's thread (a sink
/// whose thread is busy for 300 ms ends playback for good, and a player that is destroyed while
/// it plays blocks for as long), frames converted from their mapped planes there.
class VideoEngine {
public:
    virtual ~VideoEngine() = default;

    /// Loads what playing most videos needs, for the next engine. Instead of anything else.
    virtual void warmUp() = 0;
    /// Opens the source and pauses at its start. Once, before anything else.
    virtual void load(const VideoSource &source) = 0;
    /// To be called once the listener heard that the engine is prepared: from now on play() and
    /// pause() take effect at once, and the last of those before does now.
    virtual void opened() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    /// Asked now and then until the engine is prepared: says that it failed when nothing is at
    /// work any more.
    virtual void checkOpening() = 0;
    /// Goes to a time, also after the end; plays on if it was playing. Without effect before
    /// the engine is prepared.
    virtual void seek(double seconds) = 0;
    virtual void setMuted(bool muted) = 0;
    /// Of the whole media; 0 when unknown. Known once prepared.
    virtual double durationSeconds() = 0;
};

/// What the module exports: makes an engine, or returns null and says why. Any thread.
using VideoEngineFactory = VideoEngine *(*)(VideoEngineListener *listener, QString *error);

/// The name of that function. It changes whenever the classes above do.
inline constexpr const char *VideoEngineFactoryName = "velmora_video_engine_1";

} // namespace velmora
