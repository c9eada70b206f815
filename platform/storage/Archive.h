// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCborValue>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// Stores a value tree as CBOR with a header: a version, and the kind of content. So a truncated
/// file, another program's file and a later version's file are all recognised and refused. Any
/// thread.
class Archive {
public:
    /// @param kind names what the archive holds, for example "savedAds"
    static QByteArray encode(const QString &kind, const QCborValue &root);

    /// The root value; empty when the bytes are not a complete archive of this kind and version.
    static std::optional<QCborValue> decode(const QString &kind, const QByteArray &bytes);

    /// Writes a file atomically. Returns false, and leaves an old file as it is, when it can't.
    static bool write(const QString &path, const QByteArray &bytes);

    /// The file's bytes; empty when it is missing, unreadable or larger than `largest` bytes.
    static QByteArray read(const QString &path, qint64 largest);
};

} // namespace velmora
