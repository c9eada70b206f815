#include "platform/WebLink.h"

namespace velmora {

bool WebLink::mayOpen(const QUrl &link) {
    const QString scheme = link.scheme();
    return link.isValid() && !link.host().isEmpty() &&
           (scheme == QLatin1String("macappstores") || scheme == QLatin1String("https") ||
            scheme == QLatin1String("http"));
}

} // namespace velmora
