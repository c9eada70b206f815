// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

namespace velmora {

/// Store links: how the ad server's web links become links of the store application. A blank link
/// is none.
class StoreLink {
public:
    /// Banner rule: the store's web prefix ("https://" and the first label of its web host)
    /// becomes the store application's scheme with the first label of the classic host.
    static QUrl bannerLink(const QString &marketUrl);

    /// Video rule: every "https://" becomes the store application's scheme.
    static QUrl videoLink(const QString &marketUrl);
};

} // namespace velmora
