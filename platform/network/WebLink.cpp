// SPDX-License-Identifier: Apache-2.0
#include "WebLink.h"

namespace velmora {

bool WebLink::isOnTheWeb(const QUrl &url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

bool WebLink::mayOpen(const QUrl &link) {
    const bool isStorePage =
        link.isValid() && !link.host().isEmpty() && link.scheme() == QLatin1String("macappstores");
    return isStorePage || isOnTheWeb(link);
}

} // namespace velmora
