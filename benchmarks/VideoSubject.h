// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// One of the ways to play the same clip that are compared.
class VideoSubject {
public:
    /// "player": the framework's player and view. "widget": Qt's player and video
    /// widget, when the benchmarks were built with them. "decoding": the media framework alone,
    /// which decodes at the clip's pace and throws away what comes.
    static QStringList names();

    /// The command that plays as the subject does, in a process of its own. It prints a line with
    /// "PLAYING" once the clip plays.
    static QStringList command(const QString &name);

    /// Runs the subject, other than "decoding", in this process until it is ended.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
