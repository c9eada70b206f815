// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVariant>

namespace velmora {

/// Reads a property list in its XML form. The binary form is refused.
class InfoPlistReader {
public:
    static constexpr qsizetype LargestFile = 262'144;

    /// The dictionary at the top. Strings become QString, whole numbers qlonglong, real numbers
    /// double, dates QDateTime in UTC, data QByteArray, arrays QVariantList and dictionaries
    /// QVariantMap. Whatever the bytes are, reading them is bounded in time and memory, and
    /// nothing that they refer to is loaded. Any thread.
    /// @param bytes at most LargestFile
    /// @param error empty on success; otherwise the reason, and the result is empty
    static QVariantMap read(const QByteArray &bytes, QString *error);
};

} // namespace velmora
