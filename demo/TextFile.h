// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace demo {

/// The compiled-in files with the demo's texts. A file that is missing or no JSON object is a
/// mistake of the build and ends the program with a message.
class TextFile {
public:
    /// Reads a file of the folder texts/, "journal.json" for example.
    static QJsonObject read(const QString &name);
};

} // namespace demo
