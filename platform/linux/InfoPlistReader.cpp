#include "platform/InfoPlistReader.h"

#include "platform/linux/BinaryPlistCheck.h"

#include <QtCore/QDateTime>

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace velmora {

namespace {

constexpr qsizetype LargestFile = 262'144;

// The parser recurses into containers. Their number bounds their nesting, whatever comments and
// marked sections make of the tags.
constexpr qsizetype MostXmlContainers = 2000;
constexpr int DeepestNesting = 64;

struct Release {
    void operator()(void *node) const { plist_free(node); }
};
using Tree = std::unique_ptr<void, Release>;

// Turns the parser's nodes into values; nested too deep, it stops and says so.
class Converter {
public:
    QVariant value(plist_t node, int depth);
    bool isTooDeep() const { return m_isTooDeep; }

private:
    QVariantMap map(plist_t node, int depth);
    QVariantList list(plist_t node, int depth);

    bool m_isTooDeep = false;
};

QVariantMap Converter::map(plist_t node, int depth) {
    QVariantMap result;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    for (;;) {
        char *key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator, &key, &item);
        if (!item)
            break;
        result.insert(QString::fromUtf8(key), value(item, depth + 1));
        std::free(key);
    }
    std::free(iterator);
    return result;
}

QVariantList Converter::list(plist_t node, int depth) {
    QVariantList result;
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, iterator, &item);
        if (!item)
            break;
        result.append(value(item, depth + 1));
    }
    std::free(iterator);
    return result;
}

QDateTime toDate(plist_t node) {
    constexpr qint64 SecondsFrom1970To2001 = 978307200;
    qint32 seconds = 0;
    qint32 microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return QDateTime::fromMSecsSinceEpoch(
        (SecondsFrom1970To2001 + seconds) * 1000 + microseconds / 1000, Qt::UTC);
}

QVariant Converter::value(plist_t node, int depth) {
    if (depth > DeepestNesting) {
        m_isTooDeep = true;
        return {};
    }
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        quint8 value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT: {
        std::uint64_t value = 0; // of a negative number, the two's complement
        plist_get_uint_val(node, &value);
        return static_cast<qlonglong>(value);
    }
    case PLIST_UID: {
        std::uint64_t value = 0;
        plist_get_uid_val(node, &value);
        return static_cast<qlonglong>(value);
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING: {
        std::uint64_t size =
            0; // the pointer, since the copying accessor aborts on an embedded zero
        const char *text = plist_get_string_ptr(node, &size);
        return QString::fromUtf8(text, static_cast<qsizetype>(size));
    }
    case PLIST_DATA: {
        std::uint64_t size = 0;
        const char *data = plist_get_data_ptr(node, &size);
        return QByteArray(data, static_cast<qsizetype>(size));
    }
    case PLIST_DATE:
        return toDate(node);
    case PLIST_ARRAY:
        return list(node, depth);
    case PLIST_DICT:
        return map(node, depth);
    default:
        return {};
    }
}

QString xmlFault(const QByteArray &bytes) {
    if (bytes.contains('\0'))
        return QStringLiteral("neither XML nor a binary property list");
    if (bytes.count("<array") + bytes.count("<dict") > MostXmlContainers)
        return QStringLiteral("more than %1 arrays and dictionaries").arg(MostXmlContainers);
    return {};
}

Tree parse(const QByteArray &bytes, QString *error) {
    const bool isBinary = bytes.startsWith("bplist00");
    *error = isBinary ? BinaryPlistCheck(bytes).fault() : xmlFault(bytes);
    if (!error->isEmpty())
        return nullptr;
    plist_t root = nullptr;
    const auto size = static_cast<quint32>(bytes.size());
    if (isBinary)
        plist_from_bin(bytes.constData(), size, &root);
    else
        plist_from_xml(bytes.constData(), size, &root);
    if (!root)
        *error = QStringLiteral("not a property list");
    return Tree(root);
}

} // namespace

QVariantMap InfoPlistReader::read(const QByteArray &bytes, QString *error) {
    QString ignored;
    QString &fault = error ? *error : ignored;
    if (bytes.size() > LargestFile) {
        fault = QStringLiteral("larger than %1 bytes").arg(LargestFile);
        return {};
    }
    const Tree tree = parse(bytes, &fault);
    if (!tree)
        return {};
    if (plist_get_node_type(tree.get()) != PLIST_DICT) {
        fault = QStringLiteral("no dictionary at the top");
        return {};
    }
    Converter converter;
    QVariantMap result = converter.value(tree.get(), 0).toMap();
    if (!converter.isTooDeep())
        return result;
    fault = QStringLiteral("nested deeper than %1 levels").arg(DeepestNesting);
    return {};
}

} // namespace velmora
