// SPDX-License-Identifier: Apache-2.0
// A strings file: the table that is read from it is read the same when it is written again.
#include "Fuzzing.h"

#include <Velmora/StandardNames.h>

#include <QtCore/QStringEncoder>

using namespace velmora;
using velmora::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const fuzz::Scratch scratch;
    const auto read = [](const QByteArray &bytes) {
        return StandardNames::getInfoFromURL(
            QUrl::fromLocalFile(scratch.write(QStringLiteral("x.strings"), bytes)));
    };
    QHash<QString, QString> table = read(fuzz::bytesOf(data, size));
    // A line may end in other characters than `";`, and a written `= ";` is no such line.
    table.removeIf([](const auto &entry) { return entry.value().endsWith(QLatin1String("= ")); });
    QString text;
    for (auto entry = table.cbegin(); entry != table.cend(); ++entry) {
        require(!entry.key().contains(u'\n') && !entry.value().contains(u'\n'),
                "an entry is on one line");
        text +=
            u'"' + entry.key() + QLatin1String("\" = \"") + entry.value() + QLatin1String("\";\n");
    }
    QStringEncoder encoder(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    require(read(encoder(text)) == table, "a written table is read as it was");
    return 0;
}
