// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QUrl>

namespace velmora {

/// Decides which URLs the framework may load, and which links it may give to the desktop. Links
/// come from the ad server and are not trusted, and desktops have applications for many schemes,
/// some of which can be exploited. So only web and store pages are opened. Any thread.
class WebLink {
public:
    /// True for a valid URL with a host and the scheme https or http.
    static bool isOnTheWeb(const QUrl &url);

    /// True for a valid URL with a host and the scheme macappstores, https or http.
    static bool mayOpen(const QUrl &link);
};

} // namespace velmora
