// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QUrl>

#include <functional>

namespace velmora {

/// Opens links with the desktop's applications. Main thread only.
class Workspace {
public:
    using Opener = std::function<bool(const QUrl &)>;

    /// Asks the desktop to open a link. A link that WebLink::mayOpen() does not allow is refused
    /// with a log line. A store link (macappstores:) becomes an https link when the desktop has no
    /// application for the store.
    /// @return true when the desktop has accepted the link
    static bool openURL(const QUrl &link);

    /// For tests: opens the links instead of the desktop; null restores the desktop.
    static void setOpener(Opener opener);

    /// True when the desktop has an application for a scheme.
    static bool hasHandlerFor(const QString &scheme);
};

} // namespace velmora
