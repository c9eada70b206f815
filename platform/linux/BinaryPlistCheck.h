#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// Looks a binary property list over before it is parsed. The parser trusts the file where it
/// should not: it recurses as deep as the file says, copies a shared object for each of its
/// references, so that a few bytes become gigabytes, and aborts on a zero in a dictionary's key.
class BinaryPlistCheck {
public:
    explicit BinaryPlistCheck(const QByteArray &bytes);

    /// Empty when the parser may have the bytes, otherwise what is wrong with them.
    QString fault();

private:
    struct Object {
        int type = 0;
        qint64 content = 0; ///< where the content begins
        qint64 count = 0;   ///< bytes, UTF-16 units, or references (a dictionary has twice)
        int depth = 0;      ///< levels of containers; known once the object was weighed
        qint64 weight = 0;  ///< what it takes with everything in it; 0 before it was weighed
        bool entered = false;
    };

    bool readTrailer();
    bool readObjects();
    bool readObject(qint64 offset, Object *object) const;
    bool readCount(qint64 *position, int low, qint64 *count) const;
    QString weigh();
    QString weighOne(qsizetype index);
    bool isSafeKey(const Object &object) const;
    qint64 reference(const Object &container, qint64 position) const;
    std::optional<quint64> number(qint64 offset, int size) const;

    const QByteArray m_bytes;
    int m_offsetSize = 0;
    int m_referenceSize = 0;
    qint64 m_objectCount = 0;
    qint64 m_top = 0;
    qint64 m_table = 0;
    QList<Object> m_objects;
};

} // namespace velmora
