// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// One of the programs that are compared: a window that shows the same picture at the same size
/// in one way or another, until it is ended.
class BannerSubject {
public:
    /// "window": nothing. "label": a movie label of a file. "label-https": the same in a host
    /// that has fetched the file itself, over HTTPS, from the same server. "banner" and
    /// "banner-hidden": the framework's, the latter in a window that was hidden again.
    static QStringList names();

    /// Runs the subject in this process; prints "ready" once the picture is on screen.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
