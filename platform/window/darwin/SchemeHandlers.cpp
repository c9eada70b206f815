// SPDX-License-Identifier: Apache-2.0
#include "Workspace.h"

#include <CoreServices/CoreServices.h>

namespace velmora {

bool Workspace::hasHandlerFor(const QString &scheme) {
    CFStringRef text = QString(scheme + QStringLiteral("://store")).toCFString();
    CFURLRef url = CFURLCreateWithString(nullptr, text, nullptr);
    CFURLRef application =
        url ? LSCopyDefaultApplicationURLForURL(url, kLSRolesAll, nullptr) : nullptr;
    const bool found = application != nullptr;
    for (CFTypeRef object : {CFTypeRef(text), CFTypeRef(url), CFTypeRef(application)}) {
        if (object)
            CFRelease(object);
    }
    return found;
}

} // namespace velmora
