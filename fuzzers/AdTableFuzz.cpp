// SPDX-License-Identifier: Apache-2.0
// The persisted ad table: whatever is read from it survives being written and read again.
#include "AdTableFile.h"
#include "Fuzzing.h"

#include <QtCore/QJsonArray>

using namespace velmora;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const fuzz::Scratch scratch;
    const auto ads =
        AdTableFile::read(scratch.write(QStringLiteral("first"), fuzz::bytesOf(data, size)));
    if (!ads)
        return 0;
    const QJsonObject table = ads->toJson();
    for (const QJsonValue &value : table) {
        const QJsonArray placement = value.toArray();
        for (const QJsonValue &ad : placement)
            fuzz::require(ad.isObject(), "a placement has objects only");
    }
    // Begins with a line that was cut off.
    const QString second = scratch.write(QStringLiteral("second"), "{\"standard\": [");
    fuzz::require(AdTableFile::append(second, {table}) == 1, "a table can be written");
    fuzz::require(AdTableFile::read(second)->toJson() == table,
                  "a written table is read as it was");
    return 0;
}
