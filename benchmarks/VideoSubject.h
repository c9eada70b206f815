// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// The programs that are compared. They play the same clip by different means:
/// - "player": the framework's player and view, which decodes in a helper process
/// - "in process": the same where no helper can be started
/// - "widget": Qt's player and video widget, if Qt Multimedia was found at build time
/// - "decoding": GStreamer alone, which decodes in real time and shows nothing
class VideoSubject {
public:
    static QStringList names();

    /// The command that starts the program of that name. It prints "PLAYING" when the clip plays.
    static QStringList command(const QString &name);

    /// Runs a program other than "decoding" in this process until it is killed.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
