#include "platform/InfoPlistReader.h"

#include <QtCore/QDateTime>

#include <CoreFoundation/CoreFoundation.h>

namespace velmora {

namespace {

constexpr qsizetype LargestFile = 262'144;
constexpr int DeepestNesting = 64;

// Releases a Core Foundation object at the end of its scope.
template<typename Reference>
class Held {
public:
    explicit Held(Reference reference) : m_reference(reference) {}
    ~Held() {
        if (m_reference)
            CFRelease(m_reference);
    }
    Held(const Held &) = delete;
    Held &operator=(const Held &) = delete;
    Reference get() const { return m_reference; }

private:
    Reference m_reference;
};

// Turns Core Foundation's objects into values; nested too deep, it stops and says so.
class Converter {
public:
    QVariant value(CFTypeRef object, int depth);
    bool isTooDeep() const { return m_isTooDeep; }

private:
    QVariantMap map(CFDictionaryRef dictionary, int depth);
    QVariantList list(CFArrayRef array, int depth);

    bool m_isTooDeep = false;
};

template<typename Reference>
Reference as(CFTypeRef object) {
    return static_cast<Reference>(object);
}

QVariant toNumber(CFNumberRef number) {
    if (CFNumberIsFloatType(number)) {
        double value = 0;
        CFNumberGetValue(number, kCFNumberDoubleType, &value);
        return value;
    }
    qlonglong value = 0;
    CFNumberGetValue(number, kCFNumberSInt64Type, &value);
    return value;
}

QVariantMap Converter::map(CFDictionaryRef dictionary, int depth) {
    const CFIndex size = CFDictionaryGetCount(dictionary);
    QList<const void *> keys(size);
    QList<const void *> values(size);
    CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
    QVariantMap result;
    for (CFIndex i = 0; i < size; ++i) {
        if (CFGetTypeID(keys[i]) == CFStringGetTypeID())
            result.insert(QString::fromCFString(as<CFStringRef>(keys[i])),
                          value(values[i], depth + 1));
    }
    return result;
}

QVariantList Converter::list(CFArrayRef array, int depth) {
    QVariantList result;
    const CFIndex size = CFArrayGetCount(array);
    for (CFIndex i = 0; i < size; ++i)
        result.append(value(CFArrayGetValueAtIndex(array, i), depth + 1));
    return result;
}

QVariant Converter::value(CFTypeRef object, int depth) {
    if (depth > DeepestNesting) {
        m_isTooDeep = true;
        return {};
    }
    const CFTypeID type = CFGetTypeID(object);
    if (type == CFBooleanGetTypeID())
        return CFBooleanGetValue(as<CFBooleanRef>(object)) != 0;
    if (type == CFNumberGetTypeID())
        return toNumber(as<CFNumberRef>(object));
    if (type == CFStringGetTypeID())
        return QString::fromCFString(as<CFStringRef>(object));
    if (type == CFDataGetTypeID())
        return QByteArray::fromCFData(as<CFDataRef>(object));
    if (type == CFDateGetTypeID())
        return QDateTime::fromCFDate(as<CFDateRef>(object)).toUTC();
    if (type == CFArrayGetTypeID())
        return list(as<CFArrayRef>(object), depth);
    if (type == CFDictionaryGetTypeID())
        return map(as<CFDictionaryRef>(object), depth);
    return {};
}

QString reason(CFErrorRef error) {
    const Held<CFErrorRef> held(error);
    if (!error)
        return QStringLiteral("not a property list");
    const Held<CFStringRef> text(CFErrorCopyDescription(error));
    return QString::fromCFString(text.get());
}

} // namespace

QVariantMap InfoPlistReader::read(const QByteArray &bytes, QString *error) {
    QString ignored;
    QString &fault = error ? *error : ignored;
    fault.clear();
    if (bytes.size() > LargestFile) {
        fault = QStringLiteral("larger than %1 bytes").arg(LargestFile);
        return {};
    }
    const Held<CFDataRef> data(bytes.toCFData());
    CFErrorRef failure = nullptr;
    const Held<CFPropertyListRef> tree(CFPropertyListCreateWithData(
        kCFAllocatorDefault, data.get(), kCFPropertyListImmutable, nullptr, &failure));
    if (!tree.get()) {
        fault = reason(failure);
        return {};
    }
    if (CFGetTypeID(tree.get()) != CFDictionaryGetTypeID()) {
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
