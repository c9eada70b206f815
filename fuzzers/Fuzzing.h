// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What each target defines: parses the bytes and ends the process when an invariant is broken.
/// Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace velmora::fuzz {

/// Ends the process when an invariant is broken, in every build type.
inline void require(bool holds, const char *invariant) {
    if (holds)
        return;
    std::fprintf(stderr, "Broken invariant: %s\n", invariant);
    std::abort();
}

/// The input without a copy; valid as long as the input is.
inline QByteArray bytesOf(const uint8_t *data, size_t size) {
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
}

/// A folder for the files that a target's code reads by their path.
class Scratch {
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// @return the file's path
    QString write(const QString &name, const QByteArray &bytes) const {
        QFile file(path(name));
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                "the scratch folder can be written to");
        return file.fileName();
    }

private:
    const QTemporaryDir m_folder;
};

} // namespace velmora::fuzz
