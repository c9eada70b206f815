// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCborValue>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// A value tree kept as bytes under a versioned header that names what it holds, so that a
/// torn, foreign or future archive is recognised and never half understood. Any thread.
class Archive {
public:
    /// @param kind names what the archive holds, for example "savedAds"
    static QByteArray encode(const QString &kind, const QCborValue &root);

    /// The root value, or nothing when the bytes are not a whole archive of this kind.
    static std::optional<QCborValue> decode(const QString &kind, const QByteArray &bytes);

    /// Replaces the file atomically; false when it could not be written.
    static bool write(const QString &path, const QByteArray &bytes);

    /// The file's bytes; empty when it is missing, unreadable or larger than given.
    static QByteArray read(const QString &path, qint64 largest);
};

} // namespace velmora
