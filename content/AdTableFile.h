// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdCollection.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <functional>
#include <optional>
#include <vector>

namespace velmora {

/// The persisted ad table: a text file of JSON objects, one a line. Each line is a part of the
/// table; together they are the whole. New ads are appended, so that adding one costs the same
/// however large the table is, and processes that append at the same time lose nothing. A line that
/// was cut off, because the disk was full or the process was killed, is skipped. Any thread.
class AdTableFile {
public:
    /// A file grows no further, and no more of it is read.
    static constexpr qint64 LargestSize = 64 * 1024 * 1024;

    /// The union of the file's lines, without repeated ads; nothing when the file is missing or has
    /// no usable line.
    /// @param isWanted asked before each line; the lines from the first no on are left out
    static std::optional<AdCollection> read(
        const QString &path, const std::function<bool()> &isWanted = [] { return true; });

    /// Appends parts of the table, a line each; makes the file and its folder if they are missing.
    /// @return how many were written: the first ones, and no others
    static size_t append(const QString &path, const std::vector<QJsonObject> &parts);
};

} // namespace velmora
