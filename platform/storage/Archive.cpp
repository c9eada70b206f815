// SPDX-License-Identifier: Apache-2.0
#include "Archive.h"

#include <QtCore/QCborArray>
#include <QtCore/QCborParserError>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace velmora {

namespace {
const QLatin1String Magic("velmora-archive");
constexpr int Version = 1;
} // namespace

QByteArray Archive::encode(const QString &kind, const QCborValue &root) {
    return QCborValue(QCborArray{Magic, Version, kind, root}).toCbor();
}

std::optional<QCborValue> Archive::decode(const QString &kind, const QByteArray &bytes) {
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(bytes, &error);
    if (error.error != QCborError::NoError || error.offset != bytes.size() || !value.isArray())
        return {};
    const QCborArray parts = value.toArray();
    if (parts.size() != 4 || parts.at(0) != QCborValue(Magic) ||
        parts.at(1) != QCborValue(Version) || parts.at(2) != QCborValue(kind))
        return {};
    return parts.at(3);
}

bool Archive::write(const QString &path, const QByteArray &bytes) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray Archive::read(const QString &path, qint64 largest) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largest || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace velmora
