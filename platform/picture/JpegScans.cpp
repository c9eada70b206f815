// SPDX-License-Identifier: Apache-2.0
#include "JpegScans.h"

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

namespace velmora {

// Each scan begins with the marker FF DA. These bytes can also be within metadata, such as the
// pictures in it, but never within a scan.
bool JpegScans::areTooMany(QIODevice &file) {
    constexpr char Start = '\xff';
    constexpr char Scan = '\xda';
    int count = 0;
    char previous = 0;
    while (count <= Most) {
        const QByteArray part = file.read(64 * 1024);
        if (part.isEmpty())
            return false;
        for (const char c : part) {
            count += previous == Start && c == Scan ? 1 : 0;
            previous = c;
        }
    }
    return true;
}

} // namespace velmora
