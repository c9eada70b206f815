// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// A clip of the benchmarks, eight seconds long.
struct VideoClip {
    static constexpr int Frames = 240;

    QString file;
    QSize size;
};

/// A program that plays a clip, in a process of its own. It prints "PLAYING" when the clip plays.
struct VideoSubject {
    enum class Kind {
        /// The framework's player and view. At the clip's end it prints "PAINTED N SLICE MS": how
        /// many frames it has painted, and for how long it blocked the event loop at most, from
        /// the first frame on.
        Player,
        /// The same, until the first frame is painted. Prints "FIRST MS" for each of its starts,
        /// from the call of load(). The first start is the first one of the process, without any
        /// preparation; later ones follow VideoPlayer::warmUp(), as in a splash screen.
        FirstFrame,
        /// Qt's player and video widget.
        Widget,
        /// GStreamer with its X image sink, in the clip's own size.
        ImageSink,
    };

    Kind kind = Kind::Player;
    VideoClip clip;
    QSize window;

    /// Why a program cannot be run on this machine; empty if it can.
    static QString missing(Kind kind);

    QStringList command() const;

    /// Whether this process was started by command() to be a subject.
    static bool isSubject(int argc, char **argv);
    static int run(int argc, char **argv);
};

} // namespace velmora::bench
