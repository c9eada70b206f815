// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QUrl>

namespace velmora {

/// Which addresses may be asked, and which links may leave the process. Handing an untrusted link
/// to the desktop's opener is a known kind of hole, so only web pages and store pages may.
class WebLink {
public:
    /// True for a whole address with the scheme https or http.
    static bool isOnTheWeb(const QUrl &url);

    /// True for a whole link with the scheme macappstores, https or http.
    static bool mayOpen(const QUrl &link);
};

} // namespace velmora
