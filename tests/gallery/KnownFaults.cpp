// SPDX-License-Identifier: Apache-2.0
#include "tests/gallery/KnownFaults.h"

namespace velmora::test {

namespace {

struct KnownFault {
    const char *host;
    const char *stage;
    const char *reason;
};

// Delete a row when its fault is mended.
const KnownFault KnownFaults[] = {
    {"none", "none", "none"},
};

} // namespace

QString knownFault(const QString &host, const QString &stage) {
    for (const KnownFault &fault : KnownFaults) {
        if (host == QLatin1String(fault.host) && stage == QLatin1String(fault.stage))
            return QLatin1String(fault.reason);
    }
    return {};
}

} // namespace velmora::test
