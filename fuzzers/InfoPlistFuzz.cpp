// SPDX-License-Identifier: Apache-2.0
// A host's Info.plist: values of the documented types or an error, and no deep nesting.
#include "Fuzzing.h"
#include "InfoPlistReader.h"

#include <QtCore/QDateTime>

using namespace velmora;
using velmora::fuzz::require;

namespace {

void check(const QVariant &value, int depth) {
    require(depth < 100, "nesting is limited");
    switch (value.typeId()) {
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        for (const QVariant &entry : map)
            check(entry, depth + 1);
        break;
    }
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        for (const QVariant &entry : list)
            check(entry, depth + 1);
        break;
    }
    case QMetaType::QDateTime:
        require(value.toDateTime().isValid() && value.toDateTime().timeSpec() == Qt::UTC,
                "a date is valid, and in UTC");
        break;
    default:
        require(value.typeId() == QMetaType::QString || value.typeId() == QMetaType::LongLong ||
                    value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Bool ||
                    value.typeId() == QMetaType::QByteArray,
                "a value has a documented type");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    QString error;
    const QVariantMap map = InfoPlistReader::read(fuzz::bytesOf(data, size), &error);
    require(map.isEmpty() || error.isEmpty(), "there are values or an error");
    check(map, 0);
    return 0;
}
