// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <cstddef>
#include <functional>

namespace velmora {

/// Memory that an engine decodes pictures into, instead of its own. Any thread may call it.
class PictureMemory {
public:
    /// Returns null when there is none left; the engine then takes memory of its own.
    virtual void *allocate(std::size_t bytes) = 0;
    virtual void release(void *memory) = 0;

protected:
    ~PictureMemory() = default;
};

/// What an engine plays.
struct VideoSource {
    /// A regular file that is not empty. Its content is not trusted.
    QString path;
    /// False: the sound is left out, and no sound device is opened.
    bool sound = true;
    /// See VideoEngine::setPlace().
    QSize place = {};
    /// Null for the engine's own memory. It must outlive the engine and its pictures.
    PictureMemory *pictureMemory = nullptr;
    /// Called before the first byte of the file is read, and after the sound device was opened. May
    /// be empty.
    std::function<void()> aboutToRead = nullptr;
};

/// Receives the events of an engine, on any thread, from load() until the engine's destructor has
/// returned.
class VideoEngineListener {
public:
    /// The source is open and its first picture, or sound, is decoded. Once.
    virtual void prepared() = 0;
    /// A picture to show now. The pixels belong to the engine, which keeps them as long as an image
    /// uses them.
    virtual void frame(const QImage &picture) = 0;
    /// Playing, or opening the source, makes progress.
    /// @param position seconds from the start of the video
    /// @param quietFor seconds until the next progress is expected
    virtual void moved(double position, double quietFor) = 0;
    /// The end was reached while playing.
    virtual void ended() = 0;
    /// The engine can't play any more, or not at all.
    /// @param soundIsAtFault true when another engine may play the source without sound
    virtual void failed(const QString &reason, bool soundIsAtFault) = 0;
    /// A problem that does not end playback, for the log.
    virtual void remark(const QString &text) = 0;

protected:
    ~VideoEngineListener() = default;
};

/// Plays one video. All functions are called on one thread, which they may block. VideoEngines
/// makes engines.
///
/// The only engine that decodes uses GStreamer and is in platform/video/gstreamer. For an engine
/// with Qt Multimedia: construct, use and destroy QMediaPlayer and QVideoSink on the engine's
/// thread, and convert the frames there. A sink whose thread is busy for 300 ms stops playback for
/// good, and destroying a player while it plays blocks as long.
class VideoEngine {
public:
    virtual ~VideoEngine() = default;

    /// Loads the plugins that most videos need, so that this engine and later ones start faster.
    virtual void warmUp() = 0;
    /// Opens the source and pauses at its start. Called once, before the functions below.
    virtual void load(const VideoSource &source) = 0;
    /// Called once, after the listener's prepared(). play() and pause() only take effect from here
    /// on; the last of them that was called before takes effect now.
    virtual void opened() = 0;
    virtual void play() = 0;
    virtual void pause() = 0;
    /// Called about twice a second until the engine is prepared. Calls the listener's failed() when
    /// opening has stopped without a result.
    virtual void checkOpening() = 0;
    /// Goes to a position, in seconds, also from the end. A playing video plays on from there.
    /// Ignored before the engine is prepared.
    virtual void seek(double seconds) = 0;
    virtual void setMuted(bool muted) = 0;
    /// The size, in pixels, of the place where the pictures are shown. New pictures that are larger
    /// are scaled down to fit into it, with their aspect ratio kept. Empty: they keep their size.
    virtual void setPlace(const QSize &place) = 0;
    /// The length of the whole video in seconds; 0 when it is unknown and before the engine is
    /// prepared.
    virtual double durationSeconds() = 0;
};

/// The function that the module exports: makes an engine, which the caller owns, or returns null
/// and sets the error. Any thread.
using VideoEngineFactory = VideoEngine *(*)(VideoEngineListener *listener, QString *error);

/// The function's name. Its number must change whenever the classes above change, so that a library
/// refuses a module of another version.
inline constexpr const char *VideoEngineFactoryName = "velmora_video_engine_3";

} // namespace velmora
