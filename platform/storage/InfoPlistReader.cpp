// SPDX-License-Identifier: Apache-2.0
#include "InfoPlistReader.h"

#include <QtCore/QDateTime>
#include <QtCore/QXmlStreamReader>

namespace velmora {

namespace {

constexpr int DeepestNesting = 64;

class Parser {
public:
    explicit Parser(const QByteArray &bytes) : m_xml(bytes) {
        // A property list uses the predefined entities only, to which the limit does not apply.
        m_xml.setEntityExpansionLimit(0);
    }

    QVariantMap parse();
    QString fault() const;

private:
    void refuse(const QString &reason);
    void readProlog();
    QString text();
    QVariant value(int depth);
    QVariantMap map(int depth);
    QVariantList list(int depth);
    QVariant scalar();

    QXmlStreamReader m_xml;
};

// Keeps the first reason, which the later ones follow from.
void Parser::refuse(const QString &reason) {
    if (!m_xml.hasError())
        m_xml.raiseError(reason);
}

// Refuses entity declarations: QXmlStreamReader silently replaces an external entity by nothing.
void Parser::readProlog() {
    while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::StartElement) {
        if (m_xml.isDTD() && !m_xml.entityDeclarations().isEmpty())
            refuse(QStringLiteral("Entity declared"));
    }
}

QVariantMap Parser::parse() {
    readProlog();
    const bool isWrapped = m_xml.name() == u"plist";
    if (isWrapped)
        m_xml.readNextStartElement();
    if (!m_xml.isStartElement() || m_xml.name() != u"dict")
        refuse(QStringLiteral("no dictionary at the top"));
    const QVariantMap result = map(0);
    if (isWrapped && m_xml.readNextStartElement())
        refuse(QStringLiteral("more than one object at the top"));
    while (!m_xml.atEnd())
        m_xml.readNext();
    return m_xml.hasError() ? QVariantMap() : result;
}

QString Parser::fault() const {
    if (!m_xml.hasError())
        return {};
    return QStringLiteral("line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString());
}

QVariantMap Parser::map(int depth) {
    QVariantMap result;
    while (m_xml.readNextStartElement()) {
        if (m_xml.name() != u"key") {
            refuse(QStringLiteral("a value without a key"));
            break;
        }
        const QString key = text();
        if (!m_xml.readNextStartElement())
            refuse(QStringLiteral("a key without a value"));
        result.insert(key, value(depth + 1));
    }
    return result;
}

QVariantList Parser::list(int depth) {
    QVariantList result;
    while (m_xml.readNextStartElement())
        result.append(value(depth + 1));
    return result;
}

QVariant Parser::value(int depth) {
    if (depth > DeepestNesting)
        refuse(QStringLiteral("nested deeper than %1 levels").arg(DeepestNesting));
    if (m_xml.hasError())
        return {};
    if (m_xml.name() == u"dict")
        return map(depth);
    if (m_xml.name() == u"array")
        return list(depth);
    return scalar();
}

// Like QXmlStreamReader::readElementText(), but that silently skips an unknown entity.
QString Parser::text() {
    QString result;
    while (!m_xml.hasError() && m_xml.readNext() != QXmlStreamReader::EndElement) {
        if (m_xml.isStartElement() || m_xml.isEntityReference())
            refuse(QStringLiteral("Entity or element \"%1\" within text").arg(m_xml.name()));
        else if (m_xml.isCharacters())
            result += m_xml.text();
    }
    return result;
}

QVariant Parser::scalar() {
    const QString type = m_xml.name().toString();
    const QString content = text();
    bool isValid = true;
    QVariant result;
    if (type == u"string") {
        result = content;
    } else if (type == u"true" || type == u"false") {
        result = type == u"true";
    } else if (type == u"integer") {
        const int base = content.contains(u'x', Qt::CaseInsensitive) ? 16 : 10;
        result = content.toLongLong(&isValid, base);
    } else if (type == u"real") {
        result = content.toDouble(&isValid);
    } else if (type == u"date") {
        const QDateTime date = QDateTime::fromString(content.trimmed(), Qt::ISODate);
        isValid = date.isValid();
        result = date.toUTC();
    } else if (type == u"data") {
        result = QByteArray::fromBase64(content.toLatin1());
    } else {
        isValid = false;
    }
    if (!isValid)
        refuse(QStringLiteral("<%1>%2 is no value").arg(type, content.left(40)));
    return result;
}

QString unreadable(const QByteArray &bytes) {
    if (bytes.size() > InfoPlistReader::LargestFile)
        return QStringLiteral("larger than %1 bytes").arg(InfoPlistReader::LargestFile);
    if (bytes.startsWith("bplist"))
        return QStringLiteral("a binary property list is not read; convert it to XML, for "
                              "instance with \"plutil -convert xml1\"");
    return {};
}

} // namespace

QVariantMap InfoPlistReader::read(const QByteArray &bytes, QString *error) {
    QVariantMap result;
    QString fault = unreadable(bytes);
    if (fault.isEmpty()) {
        Parser parser(bytes);
        result = parser.parse();
        fault = parser.fault();
    }
    if (error)
        *error = fault;
    return result;
}

} // namespace velmora
