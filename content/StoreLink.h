// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

namespace velmora {

/// Turns the ad server's web links into links that open the store application. Banners and videos
/// follow different rules. A blank link gives an empty URL.
class StoreLink {
public:
    /// Replaces "https://" and the first label of the store's web host by "macappstores://" and the
    /// first label of its classic host. Links to other hosts stay as they are.
    static QUrl bannerLink(const QString &marketUrl);

    /// Replaces every "https://" by "macappstores://", whatever the host.
    static QUrl videoLink(const QString &marketUrl);
};

} // namespace velmora
