// SPDX-License-Identifier: Apache-2.0
// Runs a fuzz target without libFuzzer, on every file of the folders that are given.
#include "Fuzzing.h"

#include <QtCore/QDirIterator>

int main(int argc, char **argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator folder(QString::fromLocal8Bit(argv[i]), QDir::Files);
        while (folder.hasNext()) {
            QFile file(folder.next());
            if (!file.open(QIODevice::ReadOnly))
                return EXIT_FAILURE;
            std::printf("%s\n", qPrintable(file.fileName()));
            std::fflush(stdout);
            const QByteArray bytes = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.constData()),
                                   size_t(bytes.size()));
            ++files;
        }
    }
    return files > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
