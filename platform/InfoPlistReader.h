#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVariant>

namespace velmora {

/// Reads a property list, in its XML or its binary form.
class InfoPlistReader {
public:
    /// The dictionary at the top. Strings become QString, whole numbers qlonglong, real numbers
    /// double, dates QDateTime in UTC, data QByteArray, arrays QVariantList and dictionaries
    /// QVariantMap. Whatever the bytes are, reading them is bounded in time and memory. Any
    /// thread.
    /// @param bytes at most 256 KiB
    /// @param error empty on success; otherwise the reason, and the result is empty
    static QVariantMap read(const QByteArray &bytes, QString *error);
};

} // namespace velmora
