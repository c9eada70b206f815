// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVariant>

namespace velmora {

/// Reads XML property lists. The binary form is refused.
class InfoPlistReader {
public:
    static constexpr qsizetype LargestFile = 262'144;

    /// Returns the dictionary at the top. string becomes QString, integer qlonglong, real double,
    /// true and false bool, date QDateTime in UTC, data QByteArray, array QVariantList and dict
    /// QVariantMap. The bytes are not trusted: nesting and entities are limited, and nothing that
    /// they refer to is loaded. Any thread.
    /// @param bytes at most LargestFile; more are refused
    /// @param error receives the reason when the result is empty because of a fault, else an empty
    ///              text; may be null
    static QVariantMap read(const QByteArray &bytes, QString *error);
};

} // namespace velmora
