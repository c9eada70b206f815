// SPDX-License-Identifier: Apache-2.0
#include "OneTimeBody.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace velmora {

OneTimeBody::OneTimeBody(QByteArray bytes, QObject *parent)
    : QIODevice(parent), m_bytes(std::move(bytes)) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 OneTimeBody::readData(char *data, qint64 most) {
    const qint64 count = std::min<qint64>(most, m_bytes.size() - pos());
    if (count <= 0)
        return m_bytes.isEmpty() ? 0 : -1;
    std::memcpy(data, m_bytes.constData() + pos(), static_cast<size_t>(count));
    return count;
}

} // namespace velmora
