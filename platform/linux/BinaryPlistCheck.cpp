#include "platform/linux/BinaryPlistCheck.h"

namespace velmora {

namespace {

constexpr qint64 HeaderSize = 8;
constexpr qint64 TrailerSize = 32;
constexpr int DeepestNesting = 64;

// A node and its content, summed over all references.
constexpr qint64 NodeWeight = 8;
constexpr qint64 LargestWeight = 524'288;

enum Type {
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    Uid = 0x8,
    Array = 0xa,
    Dictionary = 0xd,
};

bool isContainer(int type) {
    return type == Array || type == Dictionary;
}

} // namespace

BinaryPlistCheck::BinaryPlistCheck(const QByteArray &bytes) : m_bytes(bytes) {}

QString BinaryPlistCheck::fault() {
    if (!readTrailer() || !readObjects())
        return QStringLiteral("damaged binary property list");
    return weigh();
}

std::optional<quint64> BinaryPlistCheck::number(qint64 offset, int size) const {
    if (offset < 0 || size < 1 || size > 8 || offset > m_bytes.size() - size)
        return {};
    quint64 value = 0;
    for (int i = 0; i < size; ++i)
        value = value << 8 | static_cast<quint8>(m_bytes[offset + i]);
    return value;
}

bool BinaryPlistCheck::readTrailer() {
    const qint64 trailer = m_bytes.size() - TrailerSize;
    if (trailer < HeaderSize)
        return false;
    m_offsetSize = static_cast<quint8>(m_bytes[trailer + 6]);
    m_referenceSize = static_cast<quint8>(m_bytes[trailer + 7]);
    const quint64 count = *number(trailer + 8, 8);
    const quint64 top = *number(trailer + 16, 8);
    const quint64 table = *number(trailer + 24, 8);
    const auto room = static_cast<quint64>(trailer);
    if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8 ||
        top >= count || table < HeaderSize || table > room ||
        count > (room - table) / static_cast<quint64>(m_offsetSize))
        return false;
    m_objectCount = static_cast<qint64>(count);
    m_top = static_cast<qint64>(top);
    m_table = static_cast<qint64>(table);
    return true;
}

bool BinaryPlistCheck::readObjects() {
    m_objects.resize(m_objectCount);
    for (qint64 i = 0; i < m_objectCount; ++i) {
        const quint64 offset = *number(m_table + i * m_offsetSize, m_offsetSize);
        if (offset < HeaderSize || offset >= static_cast<quint64>(m_table) ||
            !readObject(static_cast<qint64>(offset), &m_objects[i]))
            return false;
    }
    return true;
}

bool BinaryPlistCheck::readObject(qint64 offset, Object *object) const {
    const int marker = static_cast<quint8>(m_bytes[offset]);
    const int low = marker & 0xf;
    object->type = marker >> 4;
    object->content = offset + 1;
    qint64 unit = 1;
    switch (object->type) {
    case Simple:
        return low == 0x8 || low == 0x9;
    case Integer:
    case Real:
        if (low > 4 || (object->type == Real && low != 2 && low != 3))
            return false;
        object->count = qint64(1) << low;
        break;
    case Date:
        if (low != 3)
            return false;
        object->count = 8;
        break;
    case Uid:
        object->count = low + 1;
        break;
    case Dictionary:
        unit = qint64(2) * m_referenceSize;
        break;
    case Array:
        unit = m_referenceSize;
        break;
    case Utf16:
        unit = 2;
        break;
    case Data:
    case Ascii:
        break;
    default:
        return false;
    }
    if (object->count == 0 && !readCount(&object->content, low, &object->count))
        return false;
    return object->count <= (m_table - object->content) / unit;
}

bool BinaryPlistCheck::readCount(qint64 *position, int low, qint64 *count) const {
    *count = low;
    if (low < 0xf)
        return true;
    const std::optional<quint64> marker = number(*position, 1);
    if (!marker || *marker >> 4 != Integer || (*marker & 0xf) > 3)
        return false;
    const int size = 1 << (*marker & 0xf);
    const std::optional<quint64> value = number(*position + 1, size);
    if (!value || *value > static_cast<quint64>(m_bytes.size()))
        return false;
    *count = static_cast<qint64>(*value);
    *position += 1 + size;
    return true;
}

qint64 BinaryPlistCheck::reference(const Object &container, qint64 position) const {
    const quint64 index = *number(container.content + position * m_referenceSize, m_referenceSize);
    return index < static_cast<quint64>(m_objectCount) ? static_cast<qint64>(index) : -1;
}

bool BinaryPlistCheck::isSafeKey(const Object &object) const {
    if (object.type != Ascii && object.type != Utf16)
        return false;
    const int size = object.type == Utf16 ? 2 : 1;
    for (qint64 i = 0; i < object.count; ++i) {
        if (*number(object.content + i * size, size) == 0)
            return false;
    }
    return true;
}

// Children before their containers, without recursion: a container stays on the stack until
// all that it refers to was weighed.
QString BinaryPlistCheck::weigh() {
    QList<qsizetype> stack{m_top};
    qint64 references = 0;
    while (!stack.isEmpty()) {
        const qsizetype index = stack.last();
        Object &object = m_objects[index];
        if (object.weight > 0) {
            stack.removeLast();
            continue;
        }
        if (!isContainer(object.type) || object.entered) {
            stack.removeLast();
            if (QString fault = weighOne(index); !fault.isEmpty())
                return fault;
            continue;
        }
        object.entered = true;
        const qint64 children = object.type == Dictionary ? 2 * object.count : object.count;
        references += children;
        if (references > LargestWeight)
            return QStringLiteral("too many references");
        for (qint64 i = 0; i < children; ++i) {
            const qint64 child = reference(object, i);
            if (child < 0 || (m_objects[child].entered && m_objects[child].weight == 0))
                return QStringLiteral("damaged references or a cycle");
            if (object.type == Dictionary && i < object.count && !isSafeKey(m_objects[child]))
                return QStringLiteral("a key that is no text");
            stack.append(child);
        }
    }
    return {};
}

QString BinaryPlistCheck::weighOne(qsizetype index) {
    Object &object = m_objects[index];
    qint64 weight = NodeWeight;
    if (isContainer(object.type)) {
        const qint64 children = object.type == Dictionary ? 2 * object.count : object.count;
        for (qint64 i = 0; i < children; ++i) {
            const Object &child = m_objects[reference(object, i)];
            weight += child.weight;
            object.depth = std::max(object.depth, child.depth + 1);
        }
    } else {
        weight += object.count * (object.type == Utf16 ? 2 : 1);
    }
    if (weight > LargestWeight)
        return QStringLiteral("it would unfold to more than %1 bytes").arg(LargestWeight);
    if (object.depth > DeepestNesting)
        return QStringLiteral("nested deeper than %1 levels").arg(DeepestNesting);
    object.weight = weight;
    return {};
}

} // namespace velmora
