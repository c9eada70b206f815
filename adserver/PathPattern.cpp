// SPDX-License-Identifier: Apache-2.0
#include "adserver/PathPattern.h"

namespace velmora::adserver {

bool matchesPath(const QString &pattern, const QString &path) {
    if (pattern.endsWith(QLatin1Char('*')))
        return path.startsWith(QStringView(pattern).chopped(1));
    return path == pattern;
}

} // namespace velmora::adserver
