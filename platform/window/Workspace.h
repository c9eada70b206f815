// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QUrl>

#include <functional>

namespace velmora {

/// Opens links with the desktop. Main thread only.
class Workspace {
public:
    using Opener = std::function<bool(const QUrl &)>;

    /// Hands a link to the system. Links that may not be opened are refused with a log line;
    /// a store link becomes its web form where the desktop has no handler for the store.
    /// @return whether the system took it
    static bool openURL(const QUrl &link);

    /// Replaces what the links are handed to; null goes back to the desktop.
    static void setOpener(Opener opener);

    /// Whether the desktop has an application for a scheme.
    static bool hasHandlerFor(const QString &scheme);
};

} // namespace velmora
