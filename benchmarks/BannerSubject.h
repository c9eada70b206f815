// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace velmora::bench {

/// The programs that are compared. Each runs until it is killed and shows a window with the same
/// picture in the same size, by one of these means:
/// - "window": the empty window
/// - "label": a QLabel with a QMovie of a file
/// - "label-https": the same, after downloading the file over HTTPS from the ad server
/// - "banner": a banner
/// - "banner-hidden": a banner whose window was hidden after the banner had appeared
class BannerSubject {
public:
    static QStringList names();

    /// Runs the program of that name in this process. It prints "ready" when the picture is shown.
    static int run(const QString &name, int argc, char **argv);
};

} // namespace velmora::bench
